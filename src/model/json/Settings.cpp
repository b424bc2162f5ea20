// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/Settings.h"

#include "model/VariantReading.h"

#include <QVariantList>
#include <QVariantMap>

namespace JsonAPI {

namespace {

// Small integers are written as int: a variant that holds a byte does not become a JSON number.
QVariant pwmToVariant(const Model::Settings::PWM &pwm)
{
    return QVariantMap{
        {"100", int(pwm.byteFor100Power)}, {"80", int(pwm.byteFor80Power)}, {"60", int(pwm.byteFor60Power)},
        {"40", int(pwm.byteFor40Power)},   {"20", int(pwm.byteFor20Power)}, {"0", int(pwm.byteFor0Power)},
    };
}

Model::Settings::PWM pwmFromVariant(const QVariant &map)
{
    using Model::unsignedFrom;
    const auto values = map.toMap();
    Model::Settings::PWM pwm;
    pwm.byteFor100Power = unsignedFrom(values.value("100"), pwm.byteFor100Power);
    pwm.byteFor80Power = unsignedFrom(values.value("80"), pwm.byteFor80Power);
    pwm.byteFor60Power = unsignedFrom(values.value("60"), pwm.byteFor60Power);
    pwm.byteFor40Power = unsignedFrom(values.value("40"), pwm.byteFor40Power);
    pwm.byteFor20Power = unsignedFrom(values.value("20"), pwm.byteFor20Power);
    pwm.byteFor0Power = unsignedFrom(values.value("0"), pwm.byteFor0Power);
    return pwm;
}

QVariant mrfToVariant(const Model::Settings::MRF &mrf)
{
    return QVariantMap{
        {"pan", int(mrf.hostPan)},
        {"address", int(mrf.hostAddress)},
        {"channel", int(mrf.hostChannel)},
        {"duty_cycle", RadioDutyCycle::toString(mrf.dutyCycle)},
    };
}

Model::Settings::MRF mrfFromVariant(const QVariant &map)
{
    using Model::unsignedFrom;
    const auto values = map.toMap();
    Model::Settings::MRF mrf;
    mrf.hostPan = unsignedFrom(values.value("pan"), mrf.hostPan);
    mrf.hostAddress = unsignedFrom(values.value("address"), mrf.hostAddress);
    mrf.hostChannel = unsignedFrom(values.value("channel"), mrf.hostChannel);
    mrf.dutyCycle = RadioDutyCycle::fromString(values.value("duty_cycle").toString());
    return mrf;
}

QVariant loraToVariant(const Model::Settings::LoRa &lora)
{
    return QVariantMap{
        {"frequency", lora.frequency},
        {"power", lora.power},
        {"bandwidth", lora.bandwidth},
        {"spreading_factor", lora.spreadingFactor},
        {"coding_rate", lora.codingRate},
        {"address", int(lora.address)},
        {"port_name", lora.portName},
        {"duty_cycle", RadioDutyCycle::toString(lora.dutyCycle)},
        {"maximum_reply_length", lora.maximumReplyLength},
    };
}

Model::Settings::LoRa loraFromVariant(const QVariant &map)
{
    using Model::intFrom;
    const auto values = map.toMap();
    Model::Settings::LoRa lora;
    lora.frequency = Model::unsignedFrom(values.value("frequency"), lora.frequency);
    lora.power = intFrom(values.value("power"), lora.power);
    lora.bandwidth = intFrom(values.value("bandwidth"), lora.bandwidth);
    lora.spreadingFactor = intFrom(values.value("spreading_factor"), lora.spreadingFactor);
    lora.codingRate = intFrom(values.value("coding_rate"), lora.codingRate);
    lora.address = Model::unsignedFrom(values.value("address"), lora.address);
    lora.portName = values.value("port_name").toString();
    lora.dutyCycle = RadioDutyCycle::fromString(values.value("duty_cycle").toString());
    lora.maximumReplyLength = intFrom(values.value("maximum_reply_length"), lora.maximumReplyLength);
    return lora;
}

QVariant rs485ToVariant(const Model::Settings::RS485 &line)
{
    return QVariantMap{
        {"address", int(line.address)},
        {"speed", line.speed},
        {"reply_wait_time", line.replyWaitTime},
        {"duty_cycle", RadioDutyCycle::toString(line.dutyCycle)},
        {"port_name", line.portName},
    };
}

Model::Settings::RS485 rs485FromVariant(const QVariant &map)
{
    using Model::intFrom;
    const auto values = map.toMap();
    Model::Settings::RS485 line;
    line.address = Model::unsignedFrom(values.value("address"), line.address);
    line.speed = intFrom(values.value("speed"), line.speed);
    line.replyWaitTime = intFrom(values.value("reply_wait_time"), line.replyWaitTime);
    line.dutyCycle = RadioDutyCycle::fromString(values.value("duty_cycle").toString());
    line.portName = values.value("port_name").toString();
    return line;
}

template <typename Record>
QVariantList listOf(const std::vector<Record> &records, QVariant (*toVariant)(const Record &))
{
    QVariantList list;
    for (const auto &record : records)
        list.append(toVariant(record));
    return list;
}

// An element that is no object still makes a record: devices name a transport by its place in the list.
template <typename Record>
std::vector<Record> recordsOf(const QVariant &list, Record (*fromVariant)(const QVariant &))
{
    const auto maps = list.toList();
    std::vector<Record> records;
    records.reserve(static_cast<std::size_t>(maps.size()));
    for (const auto &map : maps)
        records.push_back(fromVariant(map));
    return records;
}

// Older servers know one radio only, under a name of its own.
std::vector<Model::Settings::MRF> radiosOf(const QVariantMap &attributes)
{
    if (attributes.contains("mrf"))
        return recordsOf(attributes.value("mrf"), mrfFromVariant);
    const auto radio = attributes.value("radio");
    if (radio.userType() != QMetaType::QVariantMap)
        return {};
    return {mrfFromVariant(radio)};
}

} // namespace

QVariant Settings::toVariant(const Model::Settings &settings)
{
    Entity entity("settings", "1");
    entity.setAttribute("pwm", pwmToVariant(settings.pwm));
    entity.setAttribute("mrf", listOf(settings.mrf, mrfToVariant));
    if (!settings.mrf.empty())
        entity.setAttribute("radio", mrfToVariant(settings.mrf.front()));
    entity.setAttribute("lora", listOf(settings.lora, loraToVariant));
    entity.setAttribute("rs485", listOf(settings.rs485, rs485ToVariant));
    return entity.toVariant();
}

Model::Settings Settings::fromVariant(const Entity &entity)
{
    const auto &attributes = entity.attributes;
    Model::Settings settings;
    settings.pwm = pwmFromVariant(attributes.value("pwm"));
    settings.mrf = radiosOf(attributes);
    settings.lora = recordsOf(attributes.value("lora"), loraFromVariant);
    settings.rs485 = recordsOf(attributes.value("rs485"), rs485FromVariant);
    return settings;
}

} // namespace JsonAPI
