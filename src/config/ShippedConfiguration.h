#pragma once

#include <array>
#include <string>
#include <string_view>

/// One of the named sets of the shipped configuration.
struct ShippedSet {
    std::string_view name;
    /// For people choosing a set; empty for "sample", which is only the source of new sets.
    std::string_view description;
};

inline constexpr std::size_t kShippedSetCount = 8;

/// The shipped sets in the order of the file.
const std::array<ShippedSet, kShippedSetCount>& shippedSets();

/// The version that the marker "@version:" carries, in the shipped configuration and in its document type definition.
inline constexpr std::string_view kConfigurationVersion = "2.09";

/// The whole configuration file as the program ships it, the text of resources/tarvo.xml. It needs no file, so a
/// program can run from RegistryXML::fromText(shippedConfiguration(), "").
std::string shippedConfiguration();
/// The same with no other sets than \p setName, that of the file for an empty one, and the second active one, for
/// programs that need no more: it is read in a quarter of the time. The whole file when there is no such set.
std::string shippedConfiguration(std::string_view setName);

/// The document type definition "tarvo.dtd" of configuration files.
std::string_view tarvoDtd();
