// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <exception>

namespace zmq {

// A failed call of libzmq. Carries zmq_errno() as it stood at construction.
class error_t : public std::exception
{
public:
    error_t();
    explicit error_t(int errorNumber);

    const char *what() const noexcept override; // zmq_strerror()
    int num() const noexcept { return m_errorNumber; }

private:
    int m_errorNumber;
};

} // namespace zmq
