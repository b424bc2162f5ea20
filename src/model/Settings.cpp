// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/Settings.h"

#include "model/VariantReading.h"

#include <QVariantList>
#include <QVariantMap>
#include <array>
#include <tuple>
#include <utility>

namespace Model {

namespace {

// The levels of power in the order of the fields.
auto levels(const Settings::PWM &pwm)
{
    using Level = std::pair<int, quint8>;
    return std::array<Level, 6>{Level{100, pwm.byteFor100Power}, Level{80, pwm.byteFor80Power},
                                Level{60, pwm.byteFor60Power},   Level{40, pwm.byteFor40Power},
                                Level{20, pwm.byteFor20Power},   Level{0, pwm.byteFor0Power}};
}

// In the map form a duty cycle is its number, which QML compares with the enumeration.
RadioDutyCycle::DutyCycle dutyCycleFrom(const QVariant &value)
{
    const int number = intFrom(value, RadioDutyCycle::Duty50);
    const bool known = number >= RadioDutyCycle::Duty50 && number <= RadioDutyCycle::Duty1;
    return known ? static_cast<RadioDutyCycle::DutyCycle>(number) : RadioDutyCycle::Duty50;
}

template <typename Record>
QVariantList listOf(const std::vector<Record> &records)
{
    QVariantList list;
    for (const auto &record : records)
        list.append(record.toVariant());
    return list;
}

template <typename Record>
std::vector<Record> recordsOf(const QVariant &list)
{
    const auto maps = list.toList();
    std::vector<Record> records;
    records.reserve(static_cast<std::size_t>(maps.size()));
    for (const auto &map : maps)
        records.push_back(Record::fromVariant(map));
    return records;
}

auto fields(const Settings::PWM &pwm)
{
    return std::tie(pwm.byteFor100Power, pwm.byteFor80Power, pwm.byteFor60Power, pwm.byteFor40Power, pwm.byteFor20Power,
                    pwm.byteFor0Power);
}

auto fields(const Settings::MRF &mrf)
{
    return std::tie(mrf.hostPan, mrf.hostAddress, mrf.hostChannel, mrf.dutyCycle);
}

auto fields(const Settings::LoRa &lora)
{
    return std::tie(lora.frequency, lora.power, lora.bandwidth, lora.spreadingFactor, lora.codingRate, lora.address,
                    lora.portName, lora.dutyCycle, lora.maximumReplyLength);
}

auto fields(const Settings::RS485 &line)
{
    return std::tie(line.address, line.speed, line.replyWaitTime, line.dutyCycle, line.portName);
}

auto fields(const Settings &settings)
{
    return std::tie(settings.pwm, settings.mrf, settings.lora, settings.rs485);
}

} // namespace

QMap<int, quint8> Settings::PWM::brightnessBytes() const
{
    QMap<int, quint8> bytes;
    for (const auto &level : levels(*this))
        bytes.insert(level.first, level.second);
    return bytes;
}

QMap<quint8, int> Settings::PWM::powerToPercentMap() const
{
    QMap<quint8, int> percents;
    for (const auto &level : levels(*this))
        percents.insert(level.second, level.first); // a later level, the lower percent, replaces an earlier one
    return percents;
}

// Small integers are put into the maps as int: JSON and QML make a text of a variant that holds a byte.
QVariant Settings::PWM::toVariant() const
{
    return QVariantMap{
        {"byteFor100Power", int(byteFor100Power)}, {"byteFor80Power", int(byteFor80Power)},
        {"byteFor60Power", int(byteFor60Power)},   {"byteFor40Power", int(byteFor40Power)},
        {"byteFor20Power", int(byteFor20Power)},   {"byteFor0Power", int(byteFor0Power)},
    };
}

Settings::PWM Settings::PWM::fromVariant(const QVariant &map)
{
    const auto values = map.toMap();
    PWM pwm;
    pwm.byteFor100Power = unsignedFrom(values.value("byteFor100Power"), pwm.byteFor100Power);
    pwm.byteFor80Power = unsignedFrom(values.value("byteFor80Power"), pwm.byteFor80Power);
    pwm.byteFor60Power = unsignedFrom(values.value("byteFor60Power"), pwm.byteFor60Power);
    pwm.byteFor40Power = unsignedFrom(values.value("byteFor40Power"), pwm.byteFor40Power);
    pwm.byteFor20Power = unsignedFrom(values.value("byteFor20Power"), pwm.byteFor20Power);
    pwm.byteFor0Power = unsignedFrom(values.value("byteFor0Power"), pwm.byteFor0Power);
    return pwm;
}

QVariant Settings::MRF::toVariant() const
{
    return QVariantMap{
        {"hostPan", int(hostPan)},
        {"hostAddress", int(hostAddress)},
        {"hostChannel", int(hostChannel)},
        {"dutyCycle", int(dutyCycle)},
    };
}

Settings::MRF Settings::MRF::fromVariant(const QVariant &map)
{
    const auto values = map.toMap();
    MRF mrf;
    mrf.hostPan = unsignedFrom(values.value("hostPan"), mrf.hostPan);
    mrf.hostAddress = unsignedFrom(values.value("hostAddress"), mrf.hostAddress);
    mrf.hostChannel = unsignedFrom(values.value("hostChannel"), mrf.hostChannel);
    mrf.dutyCycle = dutyCycleFrom(values.value("dutyCycle"));
    return mrf;
}

QVariant Settings::LoRa::toVariant() const
{
    return QVariantMap{
        {"frequency", frequency},
        {"power", power},
        {"bandwidth", bandwidth},
        {"spreadingFactor", spreadingFactor},
        {"codingRate", codingRate},
        {"address", int(address)},
        {"portName", portName},
        {"dutyCycle", int(dutyCycle)},
        {"maximumReplyLength", maximumReplyLength},
    };
}

Settings::LoRa Settings::LoRa::fromVariant(const QVariant &map)
{
    const auto values = map.toMap();
    LoRa lora;
    lora.frequency = unsignedFrom(values.value("frequency"), lora.frequency);
    lora.power = intFrom(values.value("power"), lora.power);
    lora.bandwidth = intFrom(values.value("bandwidth"), lora.bandwidth);
    lora.spreadingFactor = intFrom(values.value("spreadingFactor"), lora.spreadingFactor);
    lora.codingRate = intFrom(values.value("codingRate"), lora.codingRate);
    lora.address = unsignedFrom(values.value("address"), lora.address);
    lora.portName = textFrom(values.value("portName"), lora.portName);
    lora.dutyCycle = dutyCycleFrom(values.value("dutyCycle"));
    lora.maximumReplyLength = intFrom(values.value("maximumReplyLength"), lora.maximumReplyLength);
    return lora;
}

QVariant Settings::RS485::toVariant() const
{
    return QVariantMap{
        {"address", int(address)},     {"speed", speed},       {"replyWaitTime", replyWaitTime},
        {"dutyCycle", int(dutyCycle)}, {"portName", portName},
    };
}

Settings::RS485 Settings::RS485::fromVariant(const QVariant &map)
{
    const auto values = map.toMap();
    RS485 line;
    line.address = unsignedFrom(values.value("address"), line.address);
    line.speed = intFrom(values.value("speed"), line.speed);
    line.replyWaitTime = intFrom(values.value("replyWaitTime"), line.replyWaitTime);
    line.dutyCycle = dutyCycleFrom(values.value("dutyCycle"));
    line.portName = textFrom(values.value("portName"), line.portName);
    return line;
}

QVariant Settings::toVariant() const
{
    return QVariantMap{
        {"pwm", pwm.toVariant()},
        {"mrf", listOf(mrf)},
        {"lora", listOf(lora)},
        {"rs485", listOf(rs485)},
    };
}

Settings Settings::fromVariant(const QVariant &map)
{
    const auto values = map.toMap();
    Settings settings;
    settings.pwm = PWM::fromVariant(values.value("pwm"));
    settings.mrf = recordsOf<MRF>(values.value("mrf"));
    settings.lora = recordsOf<LoRa>(values.value("lora"));
    settings.rs485 = recordsOf<RS485>(values.value("rs485"));
    return settings;
}

bool operator==(const Settings::PWM &left, const Settings::PWM &right)
{
    return fields(left) == fields(right);
}

bool operator==(const Settings::MRF &left, const Settings::MRF &right)
{
    return fields(left) == fields(right);
}

bool operator==(const Settings::LoRa &left, const Settings::LoRa &right)
{
    return fields(left) == fields(right);
}

bool operator==(const Settings::RS485 &left, const Settings::RS485 &right)
{
    return fields(left) == fields(right);
}

bool operator==(const Settings &left, const Settings &right)
{
    return fields(left) == fields(right);
}

} // namespace Model
