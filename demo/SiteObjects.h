// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "demo/SiteData.h"

#include <QJsonObject>
#include <QString>

// The part of the site file that holds what is not a plan, a zone or a device: entities as in documents, and beside
// their attributes what the site keeps of them. A key that is missing is an empty list.
namespace Demo {
namespace SiteObjects {

void initResources(); // the files that the program carries; again and again does no harm

// Puts the objects into a site whose plans, zones and devices are read; false with a complaint.
bool read(const QJsonObject &site, SiteData &data, QString &error);
void write(const SiteData &data, QJsonObject &site);

// What this program can run, and the blueprints that every server has: in no site file.
std::vector<SiteNode> nodes();
std::vector<SiteBlueprint> standardBlueprints();

// Copies of the buttons and indicators of a site for one more set of its plans.
void addCopies(const SiteData &original, int copy, QUuid (*copyOf)(const QUuid &uid, int copy), SiteData &data);

} // namespace SiteObjects
} // namespace Demo
