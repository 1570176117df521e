#pragma once

#include <gmock/gmock.h>
#include <regex>
#include <string>

/// Matches the standard output of a show: the sync device comes, each of `models` tells the same number
/// twice, the device goes, and nothing else is said.
MATCHER_P(SaysNoMoreThanTheShow, models, "")
{
    const std::regex whole("syncdevice: Rocket sync device created\n"
                           "(mesh info:\n  vertices: ([0-9]+)\n  faces: \\2\n){" +
                           std::to_string(models) +
                           "}"
                           "syncdevice: Rocket sync device destroyed\n");
    return std::regex_match(arg, whole);
}
