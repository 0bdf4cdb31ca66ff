#pragma once

#include "BufrDescriptor.h"
#include "BufrTables.h"

#include <vector>

/// Whether the expansion of \p descriptors can be made of the tables: every element and sequence is there, replications
/// have their factor and their group, and no operator (F = 2) is among them. Says what is wrong.
bool bufr_check_sequence(const std::vector<bufr_desc>& descriptors, const BufrTables* tables);

/// The bufr_desc of a valid descriptor, without a value. False when it is an element that isn't in Table B.
bool bufr_make_desc(int descriptor, const BufrTables* tables, bufr_desc& desc);

/// Expands \p list in place, once through from its start and in time that goes with what it becomes. What is expanded
/// stays as a marker, flagged expanded and skipped, ahead of what it stands for:
///   a sequence is followed by its members,
///   a replication with a count by that many copies of the next X descriptors,
///   a delayed replication by its factor and, once the factor has a value, as many copies of the group. Without a
///   value, and with \p keepDelayed whatever the value, the group stays and is flagged skipped. So it does with a
///   factor of 0, which a missing one becomes.
/// False, and the list is as it was, when that can't be done; bufr_check_sequence() tells beforehand, but for a list
/// that becomes too long or is nested too deep.
bool bufr_expand_sequence(std::vector<bufr_desc>& list, const BufrTables* tables, bool keepDelayed);
