// SPDX-License-Identifier: GPL-3.0-or-later
#include "e2e/ProgramFixture.h"

namespace {

constexpr int patienceMs = 20000;

} // namespace

ProgramFixture::ProgramFixture(const QString &address)
    : m_site(address)
    , m_formerHome(qgetenv("XDG_DATA_HOME"))
{
    qputenv("XDG_DATA_HOME", m_home.path().toLocal8Bit());
}

ProgramFixture::~ProgramFixture()
{
    stopProgram();
    qputenv("XDG_DATA_HOME", m_formerHome);
}

bool ProgramFixture::startProgram(int width, int height)
{
    m_manager = std::make_unique<FrontendManager>(QCoreApplication::applicationDirPath(), QStringList());
    m_driver = std::make_unique<Driver>(*m_manager);
    if (!m_driver->window())
        return false;
    // Another size that came into the first frame could crash the offscreen platform, which makes its context then.
    m_driver->waitFor([this] { return m_driver->window()->isExposed(); }, patienceMs);
    m_driver->resize(width, height);
    return true;
}

void ProgramFixture::stopProgram()
{
    m_driver.reset();
    m_manager.reset();
}

bool ProgramFixture::restartProgram()
{
    const auto size = m_driver->window()->size();
    TestBase::cleanup(); // the program takes the log over
    stopProgram();
    const bool started = startProgram(size.width(), size.height());
    TestBase::init();
    return started;
}

bool ProgramFixture::isConnectedAs(const QString &group) const
{
    return link().getStatus() == Link::Connected && link().getUserGroup() == group;
}

bool ProgramFixture::waitForGroup(const QString &group) const
{
    return m_driver->waitFor([&] { return isConnectedAs(group) && !find("loadingHeadline"); }, patienceMs);
}
