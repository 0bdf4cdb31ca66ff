#include "BufrExpansion.h"

#include "BufrOutput.h"

#include <set>

namespace {

constexpr std::size_t kLongestList = std::size_t{1} << 21;
constexpr std::size_t kRoomBehind = 64; // for what follows a long group, so that the list isn't moved for it
constexpr int kDeepestNesting = 64;

using List = std::vector<bufr_desc>;

/// X of a replication: how many descriptors its group has.
std::size_t groupSize(const bufr_desc& replication) {
    return static_cast<std::size_t>(replication.descriptor / 1000 % 100);
}

/// Y of a replication: 0 when it is delayed.
int repetitions(const bufr_desc& replication) {
    return replication.descriptor % 1000;
}

/// The number in a factor; 0 for a missing one.
std::int64_t factorOf(const bufr_desc& factor) {
    if (bufr_is_missing(factor.value)) {
        return 0;
    }
    if (const auto* number = std::get_if<double>(&factor.value)) {
        return static_cast<std::int64_t>(*number);
    }
    const auto* number = std::get_if<std::int32_t>(&factor.value);
    return number != nullptr ? *number : 0;
}

void markExpanded(bufr_desc& desc) {
    desc.expanded = true;
    desc.skipped = true;
}

class Expansion {
public:
    Expansion(const BufrTables* tables, bool keepDelayed) : _tables(tables), _keepDelayed(keepDelayed) {}

    bool walk(const bufr_desc* begin, const bufr_desc* end, int depth) {
        if (depth > kDeepestNesting) {
            bufr_print("Error: the template is nested too deep\n");
            return false;
        }
        for (const bufr_desc* at = begin; at != end;) {
            if (isTooLong(0)) {
                return false;
            }
            // What has been expanded is followed by what it stands for, and what sleeps isn't expanded.
            const bool isDone = at->expanded || at->skipped;
            const bool isReplication = bufr_is_replication(at->descriptor);
            if (!isDone && bufr_is_table_d(at->descriptor)) {
                if (!sequence(*at, depth)) {
                    return false;
                }
                ++at;
            } else if (!isDone && isReplication) {
                const bool isExpandable = repetitions(*at) == 0 ? delayed(at, end, depth) : fixed(at, end, depth);
                if (!isExpandable) {
                    return false;
                }
            } else {
                _list.push_back(*at++);
            }
        }
        return true;
    }

    List& list() { return _list; }

private:
    bool sequence(const bufr_desc& marker, int depth) {
        const EntryTableD* entry = bufr_fetch_tableD(_tables, marker.descriptor);
        if (entry == nullptr) {
            bufr_printf("Error: descriptor %d is not in Table D\n", marker.descriptor);
            return false;
        }
        _list.push_back(marker);
        markExpanded(_list.back());
        List members(entry->members.size());
        for (std::size_t i = 0; i < members.size(); ++i) {
            if (!bufr_make_desc(entry->members[i], _tables, members[i])) {
                return false;
            }
        }
        return walk(members.data(), members.data() + members.size(), depth + 1);
    }

    static bool hasGroup(const bufr_desc& replication, const bufr_desc* begin, const bufr_desc* end) {
        if (static_cast<std::size_t>(end - begin) >= groupSize(replication)) {
            return true;
        }
        bufr_printf("Error: the group of replication %d is not whole\n", replication.descriptor);
        return false;
    }

    /// Expands the group once; its other copies are the same.
    bool repeat(std::int64_t count, const bufr_desc* begin, const bufr_desc* end, int depth) {
        const std::size_t first = _list.size();
        if (!walk(begin, end, depth + 1)) {
            return false;
        }
        const std::size_t size = _list.size() - first;
        const std::size_t others = size * static_cast<std::size_t>(count - 1);
        if (isTooLong(others)) {
            return false;
        }
        _list.reserve(_list.size() + others + kRoomBehind);
        for (std::size_t i = 0; i < others; ++i) {
            _list.push_back(_list[first + i % size]);
        }
        return true;
    }

    bool isTooLong(std::size_t added) const {
        if (_list.size() + added <= kLongestList) {
            return false;
        }
        bufr_print("Error: the template becomes too long\n");
        return true;
    }

    /// \p at is the replication, and afterwards what follows its group.
    bool fixed(const bufr_desc*& at, const bufr_desc* end, int depth) {
        const bufr_desc& marker = *at++;
        if (!hasGroup(marker, at, end)) {
            return false;
        }
        _list.push_back(marker);
        markExpanded(_list.back());
        const bufr_desc* group = at;
        at += groupSize(marker);
        return repeat(repetitions(marker), group, at, depth);
    }

    /// Likewise.
    bool delayed(const bufr_desc*& at, const bufr_desc* end, int depth) {
        const bufr_desc& marker = *at++;
        if (at == end || !at->class31) {
            bufr_printf("Error: delayed replication not followed by class 31 code=%d\n",
                        at == end ? 0 : at->descriptor);
            return false;
        }
        bufr_desc factor = *at++;
        if (!hasGroup(marker, at, end)) {
            return false;
        }
        List group(at, at + groupSize(marker));
        at += groupSize(marker);
        _list.push_back(marker);
        const bool isExpanded = factor.isSet() && !_keepDelayed;
        const std::int64_t count = isExpanded ? factorOf(factor) : 0;
        if (isExpanded) {
            markExpanded(_list.back());
            if (bufr_is_missing(factor.value)) {
                factor.value = std::int32_t{0};
            }
            factor.expanded = true;
        }
        _list.push_back(factor);
        for (bufr_desc& desc : group) {
            desc.skipped = count == 0;
        }
        if (count == 0) {
            _list.insert(_list.end(), group.begin(), group.end());
            return true;
        }
        return repeat(count, group.data(), group.data() + group.size(), depth);
    }

    const BufrTables* _tables;
    bool _keepDelayed;
    List _list;
};

/// Checks descriptors, and once each the sequences that they are made of.
class SequenceCheck {
public:
    explicit SequenceCheck(const BufrTables* tables) : _tables(tables) {}

    bool holds(const std::vector<int>& descriptors, int depth) {
        for (std::size_t i = 0; i < descriptors.size(); ++i) {
            if (!descriptorHolds(descriptors, i, depth)) {
                return false;
            }
        }
        return true;
    }

private:
    bool descriptorHolds(const std::vector<int>& descriptors, std::size_t i, int depth) {
        const int descriptor = descriptors[i];
        if (bufr_is_table_b(descriptor)) {
            bufr_desc desc;
            return bufr_make_desc(descriptor, _tables, desc);
        }
        if (bufr_is_replication(descriptor)) {
            return replicationHolds(descriptors, i);
        }
        if (!bufr_is_table_d(descriptor)) {
            bufr_printf("Error: operator %d is not supported\n", descriptor);
            return false;
        }
        if (!_seen.insert(descriptor).second) {
            return true;
        }
        const EntryTableD* entry = bufr_fetch_tableD(_tables, descriptor);
        if (entry == nullptr) {
            bufr_printf("Error: descriptor %d is not in Table D\n", descriptor);
            return false;
        }
        return depth < kDeepestNesting && holds(entry->members, depth + 1);
    }

    static bool replicationHolds(const std::vector<int>& descriptors, std::size_t i) {
        bufr_desc replication;
        replication.descriptor = descriptors[i];
        const bool isDelayed = repetitions(replication) == 0;
        const std::size_t behind = descriptors.size() - i - 1;
        if (isDelayed && (behind == 0 || !bufr_is_class31(descriptors[i + 1]))) {
            bufr_printf("Error: delayed replication not followed by class 31 code=%d\n",
                        behind == 0 ? 0 : descriptors[i + 1]);
            return false;
        }
        if (behind < groupSize(replication) + (isDelayed ? 1 : 0) || groupSize(replication) == 0) {
            bufr_printf("Error: the group of replication %d is not whole\n", replication.descriptor);
            return false;
        }
        return true;
    }

    const BufrTables* _tables;
    std::set<int> _seen;
};

} // namespace

bool bufr_make_desc(int descriptor, const BufrTables* tables, bufr_desc& desc) {
    desc = bufr_desc();
    desc.descriptor = descriptor;
    desc.class31 = bufr_is_class31(descriptor);
    if (!bufr_is_table_b(descriptor)) {
        return true;
    }
    const EntryTableB* entry = bufr_fetch_tableB(tables, descriptor);
    if (entry == nullptr) {
        bufr_printf("Error: descriptor %d is not in Table B\n", descriptor);
        return false;
    }
    desc.encoding = entry->encoding;
    return true;
}

bool bufr_check_sequence(const std::vector<bufr_desc>& descriptors, const BufrTables* tables) {
    std::vector<int> codes;
    codes.reserve(descriptors.size());
    for (const bufr_desc& desc : descriptors) {
        codes.push_back(desc.descriptor);
    }
    return SequenceCheck(tables).holds(codes, 0);
}

bool bufr_expand_sequence(std::vector<bufr_desc>& list, const BufrTables* tables, bool keepDelayed) {
    Expansion expansion(tables, keepDelayed);
    if (!expansion.walk(list.data(), list.data() + list.size(), 0)) {
        return false;
    }
    list = std::move(expansion.list());
    return true;
}
