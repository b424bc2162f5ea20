// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "demo/RequestHandler.h"

#include <QByteArray>
#include <QJsonObject>
#include <QStringList>

// A small site with fixed uids, and a handler to which documents are given as text.
namespace SiteFixture {

extern const char site[];
extern const char hall[]; // a plan
extern const char till[]; // a zone of it with the lamp, the manual lamp and the sensor
extern const char door[]; // a zone with the contactor
extern const char lamp[]; // automatic, 40 %
extern const char manualLamp[]; // 60 %
extern const char sensor[]; // of light
extern const char contactor[]; // 0 %
extern const char button[]; // a toggle button: 70 % in both zones
extern const char indicator[]; // shows what the sensor measures
extern const char picture[];
extern const char mesh[];
extern const char schedule[]; // on weekdays at 8 the till to 80 %, at 20 the door to 5 %
extern const char blueprint[]; // twice the power that "half" tells
extern const char nobody[]; // a uid that the site does not have

Demo::SiteData data(); // plans, zones, devices and users
Demo::SiteData fullData(); // and one of everything else

// A request document.
QByteArray document(const QByteArray &method, const QByteArray &link, const QByteArray &data = "[]",
                    const QByteArray &included = "[]");
QByteArray loginDocument(const QByteArray &login, const QByteArray &password);

class Desk
{
public:
    explicit Desk(const Demo::SiteData &given = data());

    // The reply document to a request document, sent unpacked.
    QJsonObject ask(const QByteArray &document, const QByteArray &connection = "admin");
    QJsonObject post(const QByteArray &link, const QByteArray &data, const QByteArray &included = "[]");
    QJsonObject remove(const QByteArray &link, const QByteArray &data);
    QJsonObject get(const QByteArray &link);
    QJsonObject upload(const QByteArray &topic, const QByteArray &data, const QByteArray &connection = "admin");
    QJsonObject send(const ZmqBinaryMessage &message, const QByteArray &connection = "admin", bool isPacked = false);
    ZmqBinaryMessage getFile(const QByteArray &link);

    Demo::DemoSite site;
    QDateTime time; // what the clock's source tells
    Demo::SiteClock clock;
    Demo::RequestHandler handler; // "admin" and "user" are connections on which those users are logged in
};

// The codes of a reply's errors, in order.
QStringList codes(const QJsonObject &reply);
// The ids of one relationship of a result document; a reply with errors or without that relationship has none.
QStringList related(const QJsonObject &reply, const char *relationship);

} // namespace SiteFixture
