// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Runs the whole program and returns the result of its event loop.
int qMain(int argc, char **argv);
