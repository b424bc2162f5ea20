// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/zmq/ZmqError.h"

#include <zmq.h>

namespace zmq {

error_t::error_t()
    : m_errorNumber(zmq_errno())
{}

error_t::error_t(int errorNumber)
    : m_errorNumber(errorNumber)
{}

const char *error_t::what() const noexcept
{
    return zmq_strerror(m_errorNumber);
}

} // namespace zmq
