# SPDX-License-Identifier: GPL-3.0-or-later
# Joins the licence texts of what the program is made with to one: cmake -D OUTPUT=... -D HEAD=... -D LIST=... -P, where
# LIST names a file with a line "NAME|FILE" for each.
file(READ "${HEAD}" TEXT)
file(STRINGS "${LIST}" ENTRIES)
foreach(ENTRY IN LISTS ENTRIES)
    string(REPLACE "|" ";" PARTS "${ENTRY}")
    list(GET PARTS 0 NAME)
    list(GET PARTS 1 FILE)
    file(READ "${FILE}" LICENCE)
    string(APPEND TEXT "\n\n======== ${NAME} ========\n\n${LICENCE}")
endforeach()
file(WRITE "${OUTPUT}" "${TEXT}")
