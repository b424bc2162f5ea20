// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLocale>
#include <QString>
#include <QTranslator>
#include <memory>

// Steps of the start that stand on their own.
namespace Startup {

// From the file "ondira.locale" in that directory, else from the one that the program carries, else Russian.
QLocale determineLocale(const QString &directory);

// None if the program carries no catalogue of that language: the texts of the source are Russian.
std::unique_ptr<QTranslator> translatorForLocale(const QString &prefix, const QLocale &locale);

} // namespace Startup
