// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <utility>
#include <vector>

// JSON values from which no number can be read, by the name of a test row.
inline const std::vector<std::pair<const char *, QByteArray>> oddNumbers{
    {"word", "\"wide\""},
    {"empty text", "\"\""},
    {"text with a comma", "\"12,5\""},
    {"null", "null"},
    {"list", "[7]"},
    {"map", "{\"x\": 7}"},
    {"nan", "\"nan\""},
    {"inf", "\"inf\""},
    {"minus inf", "\"-inf\""},
    {"text beyond doubles", "\"1e999\""},
};
