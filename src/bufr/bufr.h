#pragma once

// The encoder of BUFR messages: tables, then a template, a dataset of it, its subsets with their values, the message,
// and its octets. What can't be done gives a negative result or null, and a text to those who asked for it.

#include "BufrDataset.h"
#include "BufrDescriptor.h"
#include "BufrMessage.h"
#include "BufrOutput.h"
#include "BufrTables.h"
#include "BufrTemplate.h"
