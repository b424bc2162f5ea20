// SPDX-License-Identifier: GPL-3.0-or-later
// The unit that the shared precompiled header is built with.
