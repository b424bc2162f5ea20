// SPDX-License-Identifier: GPL-3.0-or-later
// The demo server: reads the command line, listens, and ends on SIGTERM or SIGINT.
#include "demo/DemoOptions.h"

#include <QCoreApplication>
#include <QSocketNotifier>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr int exitBadArguments = 1;
constexpr int exitNotBound = 2;

int signalPipe[2];

// Nothing but a write is allowed in a signal handler; the event loop does the rest.
void onSignal(int)
{
    const char byte = 0;
    const auto written = write(signalPipe[1], &byte, 1);
    static_cast<void>(written);
}

bool watchSignals(QCoreApplication &application)
{
    if (pipe2(signalPipe, O_CLOEXEC | O_NONBLOCK) != 0)
        return false;
    auto *notifier = new QSocketNotifier(signalPipe[0], QSocketNotifier::Read, &application);
    QObject::connect(notifier, &QSocketNotifier::activated, &application, &QCoreApplication::quit);
    struct sigaction action = {};
    action.sa_handler = onSignal;
    sigemptyset(&action.sa_mask);
    return sigaction(SIGTERM, &action, nullptr) == 0 && sigaction(SIGINT, &action, nullptr) == 0;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const auto options = Demo::DemoOptions::parse(application.arguments());
    if (options.action == Demo::DemoOptions::Action::ShowText) {
        std::fputs(qPrintable(options.text), stdout);
        return 0;
    }
    if (options.action == Demo::DemoOptions::Action::Fail) {
        std::fprintf(stderr, "%s\n", qPrintable(options.text));
        return exitBadArguments;
    }
    Demo::SiteData site;
    QString error;
    if (!options.loadSite(&site, &error)) {
        std::fprintf(stderr, "Cannot read the site %s: %s\n", qPrintable(options.siteFile), qPrintable(error));
        return exitBadArguments;
    }

    const auto &settings = options.settings;
    Demo::DemoServer server(site, settings);
    if (!server.start(&error)) {
        std::fprintf(stderr, "Cannot listen on %s, ports %d and %d: %s\n", qPrintable(settings.bind),
                     settings.controlPort, settings.updatePort, qPrintable(error));
        return exitNotBound;
    }
    if (!watchSignals(application)) {
        std::perror("Cannot watch signals");
        return exitBadArguments;
    }
    std::printf("Listening on %s:%d and %s:%d\n", qPrintable(settings.bind), server.controlPort(),
                qPrintable(settings.bind), server.updatePort());
    std::fflush(stdout);
    return application.exec();
}
