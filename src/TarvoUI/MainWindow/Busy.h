#pragma once

/// Counts a run for as long as it lives.
class Busy {
public:
    explicit Busy(int& count) : _count(count) { ++_count; }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;
    ~Busy() { --_count; }

private:
    int& _count;
};
