// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

// While one stands, the sanitizer counts no leaks: the JSON parser of Qt 5 leaks the open brackets of a damaged text,
// and the list or map of a key that stands twice.
class JsonLeaks
{
public:
    JsonLeaks() {}
    ~JsonLeaks() {}

    JsonLeaks(const JsonLeaks &) = delete;
    JsonLeaks &operator=(const JsonLeaks &) = delete;

private:
#ifdef __SANITIZE_ADDRESS__
    const __lsan::ScopedDisabler m_disabler;
#endif
};
