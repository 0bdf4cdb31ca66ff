#pragma once

#include <cstddef>
#include <vector>

namespace skewt {

/// The elements of one kind in a display list, and how many of them, from the front, are drawn already.
template <typename T>
class VectorPlus : public std::vector<T> {
public:
    std::size_t drawn() const { return _drawn; }
    /// All that is there now is drawn.
    void setDrawn() { _drawn = this->size(); }
    /// Everything has to be drawn again.
    void resetDrawn() { _drawn = 0; }
    /// No element is left.
    void reset() {
        this->clear();
        _drawn = 0;
    }

private:
    std::size_t _drawn = 0;
};

} // namespace skewt
