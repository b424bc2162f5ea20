// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/qMain.h"

#include "shell/FrontendManager.h"
#include "shell/ProcessSetup.h"

#include <QApplication>

int qMain(int argc, char **argv)
{
    const QString directory = ProcessSetup::beforeApplication(argc, argv);
    QApplication application(argc, argv);
    ProcessSetup::afterApplication();
    FrontendManager manager(directory, QCoreApplication::arguments());
    return QApplication::exec();
}
