// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "TestLink.h"

#include <QtEndian>

// The records that the operations are tried with.
inline const QUuid hallUid("{11111111-1111-1111-1111-111111111111}");
inline const QUuid partUid("{22222222-2222-2222-2222-222222222222}");

inline Model::Zone hall()
{
    Model::Zone zone;
    zone.uid = hallUid;
    zone.partUid = partUid;
    zone.name = QStringLiteral("Холл");
    zone.position = {1.5, 2};
    zone.width = 30;
    zone.height = 40;
    return zone;
}

inline Model::ShopPart floorPlan()
{
    Model::ShopPart part;
    part.uid = partUid;
    part.name = QStringLiteral("Этаж");
    return part;
}

inline Model::DeviceDescriptor lamp()
{
    return {QUrl("Lamp.qml"), hallUid, partUid, 1, 17, {{"name", "Лампа"}}, Model::RadioStatus::DeviceType::LoRa, 2};
}

inline Model::UserInfo user()
{
    Model::UserInfo info;
    info.login = QStringLiteral("user");
    info.password = QByteArray("secret");
    info.group = QStringLiteral("user");
    info.zonesWhitelist = QSet<QUuid>{hallUid};
    return info;
}

inline Model::ScheduleDay workday()
{
    return {hallUid, QStringLiteral("Будни"), {}, {0}};
}

inline Model::Button lightButton()
{
    Model::Button button;
    button.uid = hallUid;
    button.partUid = partUid;
    button.name = QStringLiteral("Свет");
    button.toggle = true;
    return button;
}

inline Model::Indicator alarm()
{
    Model::Indicator indicator;
    indicator.uid = hallUid;
    indicator.partUid = partUid;
    indicator.label = QStringLiteral("Авария");
    return indicator;
}

inline Model::ImageItem picture()
{
    Model::ImageItem item;
    item.uid = hallUid;
    item.partUid = partUid;
    item.name = QStringLiteral("План");
    item.x = 1234.5678;
    item.y = -0.5;
    item.width = 30;
    return item;
}

inline Model::View3DItem machine()
{
    Model::View3DItem item;
    item.uid = hallUid;
    item.partUid = partUid;
    item.name = QStringLiteral("Станок");
    item.x = 1.5;
    item.modelData = QByteArray("mesh\0\xff", 6);
    return item;
}

inline Model::ActionBlueprint evening()
{
    return Model::ActionBlueprint(QStringLiteral("Вечер"), hallUid);
}

// One entry of a binary message.
inline QByteArray entry(const QByteArray &key, const QByteArray &value)
{
    const auto length = [](const QByteArray &bytes) {
        QByteArray number(4, '\0');
        qToLittleEndian<qint32>(bytes.size(), number.data());
        return number;
    };
    return length(key) + key + length(value) + value;
}

inline const QByteArray failed = R"({"errors":[{"code":"failed","title":"t","detail":"d"}]})";

inline QByteArray resultDocument()
{
    return R"({"data":[
        {"type":"response","id":"1","relationships":{
            "deleted":{"data":[{"type":"zone","id":"{00000000-0000-0000-0000-00000000000d}","meta":{}}]},
            "changed":{"data":[{"type":"zone","id":"{00000000-0000-0000-0000-00000000000c}","meta":{}}]},
            "added":{"data":[{"type":"zone","id":"{00000000-0000-0000-0000-00000000000a}","meta":{}},
                             {"type":"zone","id":"{00000000-0000-0000-0000-00000000000b}","meta":{}}]}}},
        {"type":"other","id":"2","relationships":{
            "added":{"data":[{"type":"zone","id":"{00000000-0000-0000-0000-0000000000ff}","meta":{}}]}}},
        {"type":"response","id":"3","relationships":{
            "added":{"data":[{"type":"zone","id":"no uid","meta":{}}]}}}]})";
}

inline const std::vector<QUuid> resultUids{
    QUuid("{00000000-0000-0000-0000-00000000000a}"), QUuid("{00000000-0000-0000-0000-00000000000b}"),
    QUuid("{00000000-0000-0000-0000-00000000000c}"), QUuid("{00000000-0000-0000-0000-00000000000d}"), QUuid()};

// A link that is logged in to a server, which then waits to be told its answers.
class OperationsTestBase : public TestBase
{
    Q_OBJECT

protected slots:
    void init()
    {
        TestBase::init();
        m_server = std::make_unique<FakeServer>();
        m_link = std::make_unique<TestCommunicator>();
        QVERIFY(logIn(*m_link, *m_server));
        m_server->requests.clear();
    }

    void cleanup()
    {
        m_link.reset();
        m_server.reset();
        TestBase::cleanup();
    }

protected:
    // The first request of that resource since the login.
    FakeServer::Request awaitRequest(const QByteArray &resource)
    {
        if (!QTest::qWaitFor([&] { return m_server->count(resource) > 0; }))
            qWarning() << "No request for" << resource;
        return m_server->last(resource);
    }

    void answerNext(const QByteArray &resource, const QByteArray &document)
    {
        const auto request = awaitRequest(resource);
        QCOMPARE(request.resource(), resource);
        m_link->seenReplies.clear();
        m_server->reply(request, document);
        QTRY_VERIFY(m_link->seenReplies.contains(request.id));
    }

    std::unique_ptr<FakeServer> m_server;
    std::unique_ptr<TestCommunicator> m_link;
};
