// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/StandardBlueprints.h"

#include <QCoreApplication>
#include <QFile>
#include <QJsonDocument>

namespace Model {
namespace StandardBlueprints {

namespace {

// Where a graph of a single chain begins and ends on the canvas.
constexpr Position firstPlace{128, 256};
constexpr Position lastPlace{640, 256};

constexpr int columnWidth = 384;
constexpr int rowHeight = 32;
constexpr int firstRow = 128;

// Gives tr() to functions.
class Texts
{
    Q_DECLARE_TR_FUNCTIONS(StandardBlueprints)
};

ActionBlueprint systemBlueprint(const QString &name, const QUuid &uid)
{
    ActionBlueprint blueprint(name, uid);
    blueprint.system = true;
    return blueprint;
}

NodeInstance &addNode(ActionBlueprint &blueprint, const QString &type, const QUuid &uid, const Position &position)
{
    blueprint.addNode(type, uid);
    auto &node = blueprint.nodes.back();
    node.position = position;
    return node;
}

ActionBlueprint setMode(const QString &name, const QUuid &uid, long long mode)
{
    auto blueprint = systemBlueprint(name, uid);
    auto &output = addNode(blueprint, "output_mode", persistentUID(101), firstPlace);
    output.property("mode").value.setValue(ActionDatatype::EnumDatatype{mode});
    return blueprint;
}

// The labels of exposed properties, by global name.
using Labels = std::vector<std::pair<QString, QString>>;

ActionBlueprint luxSensor(const QString &path, const QString &name, const QUuid &uid, const Labels &labels)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    auto blueprint = ActionBlueprint::fromVariant(QJsonDocument::fromJson(file.readAll()).toVariant());
    blueprint.name = name;
    blueprint.uid = uid;
    blueprint.system = true;
    for (const auto &label : labels) {
        if (auto *property = blueprint.property(label.first))
            property->userDescription = label.second;
    }
    return blueprint;
}

} // namespace

QUuid persistentUID(unsigned short n)
{
    return QUuid(3776, n, 0, 0, 0, 0, 0, 0, 0, 0, static_cast<uchar>(n & 0xff));
}

QUuid indoorLuxSensorUid()
{
    return persistentUID(1);
}

QUuid setPowerUid()
{
    return persistentUID(2);
}

QUuid setAutoModeUid()
{
    return persistentUID(3);
}

QUuid outdoorLuxSensorUid()
{
    return persistentUID(4);
}

QUuid setManualModeUid()
{
    return persistentUID(5);
}

QUuid debugAllNodesUid()
{
    return persistentUID(6);
}

ActionBlueprint setPower()
{
    auto blueprint = systemBlueprint(Texts::tr("Установить мощность"), setPowerUid());

    auto &number = addNode(blueprint, "type/integer", persistentUID(100), firstPlace);
    auto &power = number.property("value");
    power.value = ActionDatatype(0LL);
    power.valueLimits = ActionValueLimits::integer(0, 100);
    power.userDescription = Texts::tr("Мощность");
    power.exposed = true;
    power.globalName = "power";

    auto &output = addNode(blueprint, "output", persistentUID(101), lastPlace);
    output.property("property").value = ActionDatatype(QString("power"));

    blueprint.connect(persistentUID(100), "value", persistentUID(101), "value");
    return blueprint;
}

ActionBlueprint setManualMode()
{
    return setMode(Texts::tr("Перевести в ручной режим"), setManualModeUid(), 0);
}

ActionBlueprint setAutoMode()
{
    return setMode(Texts::tr("Перевести в автоматический режим"), setAutoModeUid(), 1);
}

ActionBlueprint indoorLuxSensor()
{
    return luxSensor(":/standard_blueprints/indoor_sensor.json",
                     Texts::tr("Мощность по внутреннему датчику освещенности"), indoorLuxSensorUid(),
                     {{"lightSensor", Texts::tr("Датчик освещенности")},
                      {"errorMargin", Texts::tr("Ошибка регулирования, лк")},
                      {"targetLux", Texts::tr("Целевая освещенность, лк")},
                      {"lowerBound", Texts::tr("Нижняя граница мощности, %")},
                      {"upperBound", Texts::tr("Верхняя граница мощности, %")}});
}

ActionBlueprint outdoorLuxSensor()
{
    return luxSensor(":/standard_blueprints/outdoor_sensor.json",
                     Texts::tr("Мощность по внешнему датчику освещенности"), outdoorLuxSensorUid(),
                     {{"lightSensor", Texts::tr("Датчик освещенности")},
                      {"minBrightness", Texts::tr("Мощность 100%, если освещенность меньше")},
                      {"maxBrightness", Texts::tr("Мощность 0%, если освещенность больше")},
                      {"lowerBound", Texts::tr("Нижняя граница мощности, %")},
                      {"upperBound", Texts::tr("Верхняя граница мощности, %")}});
}

ActionBlueprint debugAllNodes(const std::vector<NodeDescription> &descriptions)
{
    auto blueprint = systemBlueprint(Texts::tr("Отладка: все узлы"), debugAllNodesUid());
    blueprint.nodes.reserve(descriptions.size());
    Position position{-256, firstRow};
    QString category;
    for (const auto &description : descriptions) {
        if (description.category != category) {
            category = description.category;
            position.x += columnWidth;
            position.y = firstRow;
        }
        addNode(blueprint, description.type, QUuid::createUuid(), position);
        const auto rows =
            description.inputs.size() + description.outputs.size() + 4 + 2 * description.properties.size();
        position.y += rowHeight * static_cast<double>(rows);
    }
    return blueprint;
}

} // namespace StandardBlueprints
} // namespace Model
