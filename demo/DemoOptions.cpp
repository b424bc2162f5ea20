// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/DemoOptions.h"

#include "demo/SiteLoader.h"

#include <QCommandLineParser>
#include <limits>

namespace Demo {

namespace {

constexpr int mostMilliseconds = 24 * 60 * 60 * 1000;

// Reads options of one command line and keeps the first complaint.
class OptionReader
{
public:
    explicit OptionReader(const QCommandLineParser &parser)
        : m_parser(parser)
    {}

    int number(const QString &name, int fallback, int least, int most)
    {
        if (!m_parser.isSet(name))
            return fallback;
        bool good = false;
        const int value = m_parser.value(name).toInt(&good);
        if (good && value >= least && value <= most)
            return value;
        complain(name, QStringLiteral("a whole number from %1 to %2").arg(least).arg(most));
        return fallback;
    }

    QVersionNumber version(const QString &name, const QVersionNumber &fallback)
    {
        if (!m_parser.isSet(name))
            return fallback;
        int suffix = 0;
        const auto text = m_parser.value(name);
        const auto version = QVersionNumber::fromString(text, &suffix);
        if (version.segmentCount() == 3 && suffix == text.size())
            return version;
        complain(name, QStringLiteral("three numbers with dots between"));
        return fallback;
    }

    QString error() const { return m_error; }

private:
    void complain(const QString &name, const QString &expected)
    {
        if (m_error.isEmpty())
            m_error = QStringLiteral("--%1 needs %2, not \"%3\".").arg(name, expected, m_parser.value(name));
    }

    const QCommandLineParser &m_parser;
    QString m_error;
};

void addOptions(QCommandLineParser &parser)
{
    parser.setApplicationDescription("A site to try the program on: a server that holds it and lets time pass.");
    parser.addHelpOption();
    parser.addOptions({
        {"control-port", "Port of requests (23140); 0 takes any that is free.", "port"},
        {"update-port", "Port of publications (23141); 0 takes any that is free.", "port"},
        {"bind", "Address to listen on (127.0.0.1); * for all.", "address"},
        {"site", "Read the site from this JSON file.", "file"},
        {"scale", "Repeat the site so many times, up to 10000 devices.", "times"},
        {"devices", "Repeat the site until it has exactly so many devices.", "number"},
        {"seed", "Seed of everything random (1).", "number"},
        {"version", "Tell clients this server version (4.5.2).", "X.Y.Z"},
        {"tick", "Milliseconds between steps of time (1000); 0 lets time stand still.", "ms"},
        {"silent", "Fault: take requests and never answer."},
        {"slow", "Fault: let each reply wait.", "ms"},
        {"drop", "Fault: lose every Nth reply.", "N"},
        {"garbage", "Fault: send broken messages in between."},
        {"no-publications", "Fault: publish nothing."},
    });
}

} // namespace

DemoOptions DemoOptions::parse(const QStringList &arguments)
{
    QCommandLineParser parser;
    addOptions(parser);
    DemoOptions options;
    if (!parser.parse(arguments)) {
        options.action = Action::Fail;
        options.text = parser.errorText();
        return options;
    }
    if (parser.isSet("help")) {
        options.action = Action::ShowText;
        options.text = parser.helpText();
        return options;
    }

    OptionReader reader(parser);
    auto &settings = options.settings;
    settings.controlPort = reader.number("control-port", settings.controlPort, 0, 65535);
    settings.updatePort = reader.number("update-port", settings.updatePort, 0, 65535);
    if (parser.isSet("bind"))
        settings.bind = parser.value("bind");
    settings.seed = static_cast<quint32>(reader.number("seed", 1, 0, std::numeric_limits<int>::max()));
    settings.version = reader.version("version", settings.version);
    settings.tick = reader.number("tick", settings.tick, 0, mostMilliseconds);
    settings.faults.silent = parser.isSet("silent");
    settings.faults.slow = reader.number("slow", 0, 0, mostMilliseconds);
    settings.faults.drop = reader.number("drop", 0, 1, std::numeric_limits<int>::max());
    settings.faults.garbage = parser.isSet("garbage");
    settings.faults.noPublications = parser.isSet("no-publications");
    options.siteFile = parser.value("site");
    options.scale = reader.number("scale", 1, 1, SiteLoader::mostDevices);
    options.devices = reader.number("devices", 0, 1, SiteLoader::mostDevices);

    options.text = reader.error();
    if (options.text.isEmpty() && !parser.positionalArguments().isEmpty())
        options.text = QStringLiteral("Unexpected argument \"%1\".").arg(parser.positionalArguments().first());
    if (!options.text.isEmpty())
        options.action = Action::Fail;
    return options;
}

bool DemoOptions::loadSite(SiteData *site, QString *error) const
{
    const auto loaded = siteFile.isEmpty() ? SiteLoader::builtIn() : SiteLoader::fromFile(siteFile, error);
    if (!loaded)
        return false;
    *site = devices > 0 ? SiteLoader::withDevices(*loaded, devices)
                        : SiteLoader::scaled(*loaded, scale, SiteLoader::mostDevices);
    return true;
}

} // namespace Demo
