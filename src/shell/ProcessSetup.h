// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

// What has to be settled before and right after the application object exists: the environment, the OpenGL choice,
// the rules of the log. The program and its test programs start through the same steps, in this order:
// beforeApplication(), QApplication, afterApplication().
namespace ProcessSetup {

// Returns the directory of the executable. Sets attributes and environment variables from the raw arguments:
// "--mesa" asks for software OpenGL and wins over "--no-gles", "--no-pixel-ratio" leaves the screen scale alone.
QString beforeApplication(int &argc, char **argv);
void afterApplication();

// The six rules by which only the categories "default" and "qml" emit debug lines.
QString loggingRules();

} // namespace ProcessSetup
