// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

// What the fuzz targets share: each fills fuzzOne(), which looks at one input and requires what must hold of it.
namespace Fuzz {

void fuzzOne(const QByteArray &input);

inline void require(bool holds, const char *what)
{
    if (holds)
        return;
    std::fprintf(stderr, "Does not hold: %s\n", what);
    std::abort();
}

} // namespace Fuzz
