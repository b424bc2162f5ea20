// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <random>

namespace Demo {

// Broken messages, the same for the same seed: what a damaged or foreign program might send in between.
class Garbage
{
public:
    explicit Garbage(quint32 seed);

    QList<QByteArray> frames(); // what follows the delimiter of a reply, or nothing usable at all
    QByteArray bytes(int most); // up to so many

private:
    int number(int least, int most);

    std::mt19937 m_random;
};

} // namespace Demo
