// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace Model {

// A place on the canvas of a plan or of the node editor, in canvas units.
struct Position
{
    double x = 0.0;
    double y = 0.0;
};

inline bool operator==(const Position &left, const Position &right)
{
    return left.x == right.x && left.y == right.y;
}

} // namespace Model
