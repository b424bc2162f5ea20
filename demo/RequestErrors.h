// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/document/Errors.h"
#include "link/document/Response.h"

#include <QString>

namespace Demo {

// The complaints of the server: an English code, a Russian title for the user, and what exactly was wrong.
namespace RequestErrors {

void badRequest(JsonAPI::Errors &errors, const QString &detail); // cannot be read
void unknownResource(JsonAPI::Errors &errors, const QString &resource);
void wrongMethod(JsonAPI::Errors &errors, const QString &resource);
void unknownRecord(JsonAPI::Errors &errors, const QString &id);
void invalidData(JsonAPI::Errors &errors, const QString &detail); // read, but makes no sense here
void unknownBlueprint(JsonAPI::Errors &errors, const QString &uid);
void storeFull(JsonAPI::Errors &errors, const QString &detail); // of pictures and meshes
void tooMuchStatistics(JsonAPI::Errors &errors, const QString &detail); // in one reply
void lastAdministrator(JsonAPI::Errors &errors);
void corruptedBackup(JsonAPI::Errors &errors, const QString &detail);
void authNeeded(JsonAPI::Errors &errors);
void authFailed(JsonAPI::Errors &errors);

JsonAPI::Response response(const JsonAPI::Errors &errors); // with the first of them, when there are very many

} // namespace RequestErrors
} // namespace Demo
