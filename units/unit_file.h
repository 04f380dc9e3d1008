#pragma once

#include <boost/property_tree/ptree_fwd.hpp>
#include <string>

/// Writes `unit` (sections of keys, nothing deeper) as the unit file `unitName` in
/// /run/systemd/system, which is made when missing, and enables the unit. Keys and values are
/// written as they stand. Every failure is logged; the unit is enabled even when writing it
/// failed. Throws only what making the directory or enabling throws, and std::bad_alloc.
void WriteAndEnableUnit(const std::string& unitName, const boost::property_tree::ptree& unit);
