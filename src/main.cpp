// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/qMain.h"

int main(int argc, char **argv)
{
    return qMain(argc, argv);
}
