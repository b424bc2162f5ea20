// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "demo/SiteData.h"

#include <QByteArray>
#include <QString>
#include <boost/optional.hpp>

namespace Demo {

// Reads and writes the site file, which is also what a backup holds. A site that does not hold together (a wrong
// type, a repeated uid, a zone in no plan, a device of no known type) is refused whole.
class SiteLoader
{
public:
    static constexpr int mostDevices = 10000;

    static boost::optional<SiteData> fromJson(const QByteArray &json, QString *error);
    static boost::optional<SiteData> fromFile(const QString &path, QString *error);
    static SiteData builtIn(); // the site that the program carries
    static QByteArray toJson(const SiteData &site);

    // The site repeated as further plans, as often as told, but with no more devices than that. A copy's uids depend
    // on nothing but the original's and its number.
    static SiteData scaled(const SiteData &site, int copies, int devices);
    static SiteData withDevices(const SiteData &site, int devices); // exactly so many, if it has any at all
};

} // namespace Demo
