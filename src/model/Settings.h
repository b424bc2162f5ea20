// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/RadioDutyCycle.h"

#include <QMap>
#include <QMetaType>
#include <QString>
#include <QVariant>
#include <vector>

namespace Model {

// The server's hardware configuration: what byte a lamp gets for each power, and the transports. Each record has a map
// form for QML (camelCase keys) and a document (model/json/Settings).
struct Settings
{
    // The byte of pulse width for each level of power.
    struct PWM
    {
        quint8 byteFor100Power = 255;
        quint8 byteFor80Power = 204;
        quint8 byteFor60Power = 153;
        quint8 byteFor40Power = 102;
        quint8 byteFor20Power = 51;
        quint8 byteFor0Power = 0;

        QMap<int, quint8> brightnessBytes() const; // by percent
        QMap<quint8, int> powerToPercentMap() const; // of levels that share a byte the lower percent stands

        QVariant toVariant() const;
        static PWM fromVariant(const QVariant &map);
    };

    struct MRF
    {
        quint16 hostPan = 0;
        quint16 hostAddress = 12288;
        quint8 hostChannel = 15; // 11 to 26 in forms
        RadioDutyCycle::DutyCycle dutyCycle = RadioDutyCycle::Duty50;

        QVariant toVariant() const;
        static MRF fromVariant(const QVariant &map);
    };

    struct LoRa
    {
        quint64 frequency = 434000000; // hertz
        int power = 30; // dBm
        int bandwidth = 9; // 6 to 9: 62.5, 125, 250, 500 kHz
        int spreadingFactor = 6;
        int codingRate = 4;
        quint16 address = 12288;
        QString portName; // empty: chosen by the server
        RadioDutyCycle::DutyCycle dutyCycle = RadioDutyCycle::Duty50;
        int maximumReplyLength = 64; // bytes

        QVariant toVariant() const;
        static LoRa fromVariant(const QVariant &map);
    };

    struct RS485
    {
        quint16 address = 12288;
        int speed = 9600; // baud
        int replyWaitTime = 50; // milliseconds
        RadioDutyCycle::DutyCycle dutyCycle = RadioDutyCycle::Duty50;
        QString portName; // empty: chosen by the server

        QVariant toVariant() const;
        static RS485 fromVariant(const QVariant &map);
    };

    PWM pwm;
    std::vector<MRF> mrf;
    std::vector<LoRa> lora;
    std::vector<RS485> rs485;

    QVariant toVariant() const;
    static Settings fromVariant(const QVariant &map);
};

bool operator==(const Settings::PWM &left, const Settings::PWM &right);
bool operator==(const Settings::MRF &left, const Settings::MRF &right);
bool operator==(const Settings::LoRa &left, const Settings::LoRa &right);
bool operator==(const Settings::RS485 &left, const Settings::RS485 &right);
bool operator==(const Settings &left, const Settings &right);

} // namespace Model

Q_DECLARE_METATYPE(Model::Settings)
