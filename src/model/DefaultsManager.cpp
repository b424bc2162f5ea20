// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/DefaultsManager.h"

#include "model/Site.h"
#include "model/StandardBlueprints.h"

#include <QFile>
#include <QLoggingCategory>
#include <QtGlobal>

Q_LOGGING_CATEGORY(defaultsCategory, "ondira.model.defaults")

using Model::ParameterDeclaration;

namespace {

constexpr int largestLux = 100000;
constexpr int largestDelay = 86400; // seconds, a day
constexpr double largestNumber = 1e9;

// Categories and names are data of the site and stay as they are. The descriptions of parameters are translated each
// time that a declaration is read.
constexpr auto deviceAlgorithms = "Алгоритмы устройств";
constexpr auto control = "Управление";
constexpr auto logic = "Логические операции";

ParameterDeclaration percent(const QString &identificator, const QString &description, double value)
{
    return ParameterDeclaration::number(identificator, description, value, 0, 100);
}

ParameterDeclaration lux(const QString &identificator, const QString &description, double value)
{
    return ParameterDeclaration::number(identificator, description, value, 0, largestLux);
}

ParameterDeclaration number(const QString &identificator, const QString &description)
{
    return ParameterDeclaration::number(identificator, description, 0, -largestNumber, largestNumber);
}

ParameterDeclaration lightSensor()
{
    return ParameterDeclaration::device("lightSensor", QT_TRANSLATE_NOOP("DefaultActions", "Датчик освещенности"),
                                        {"polling_light_sensor"}, {});
}

ParameterDeclaration property(const QString &identificator, const QString &description)
{
    return ParameterDeclaration::property(identificator, description, {});
}

// What follows from a comparison.
std::vector<ParameterDeclaration> outcomes()
{
    return {
        ParameterDeclaration::action("lessAction", QT_TRANSLATE_NOOP("DefaultActions", "Действие, если меньше")),
        ParameterDeclaration::action("equalAction", QT_TRANSLATE_NOOP("DefaultActions", "Действие, если равно")),
        ParameterDeclaration::action("greaterAction", QT_TRANSLATE_NOOP("DefaultActions", "Действие, если больше")),
    };
}

std::vector<ParameterDeclaration> comparison(const ParameterDeclaration &left, const ParameterDeclaration &right)
{
    std::vector<ParameterDeclaration> parameters{left, right};
    const auto actions = outcomes();
    parameters.insert(parameters.end(), actions.begin(), actions.end());
    return parameters;
}

} // namespace

DefaultsManager::DefaultsManager(Model::Shop &shop)
    : m_shop(shop)
{}

void DefaultsManager::fillDefaultActions()
{
    createAction("Мощность по внутреннему датчику освещенности", deviceAlgorithms,
                 {lux("targetLux", QT_TRANSLATE_NOOP("DefaultActions", "Целевая освещенность, лк"), 300), lightSensor(),
                  percent("lowerBound", QT_TRANSLATE_NOOP("DefaultActions", "Нижняя граница мощности, %"), 0),
                  percent("upperBound", QT_TRANSLATE_NOOP("DefaultActions", "Верхняя граница мощности, %"), 100),
                  lux("errorMargin", QT_TRANSLATE_NOOP("DefaultActions", "Ошибка регулирования, лк"), 20)},
                 ":/defaults/simpleIndoorLightSensor.js", 1);
    createAction("Установить мощность", control,
                 {percent("power", QT_TRANSLATE_NOOP("DefaultActions", "Мощность, %"), 100)}, ":/defaults/setPower.js",
                 2);
    createAction("Перевести в автоматический режим", control, {}, ":/defaults/setAuto.js", 3);
    createAction(
        "Мощность по внешнему датчику освещенности", deviceAlgorithms,
        {lux("minBrightness", QT_TRANSLATE_NOOP("DefaultActions", "Мощность 100%, если освещенность меньше"), 100),
         lux("maxBrightness", QT_TRANSLATE_NOOP("DefaultActions", "Мощность 0%, если освещенность больше"), 1000),
         lightSensor()},
        ":/defaults/outdoorLightSensor.js", 4);
    createAction("Перевести в ручной режим", control, {}, ":/defaults/setManual.js", 5);
    createAction(
        "Действия по датчику контакта", deviceAlgorithms,
        {property("sensor", QT_TRANSLATE_NOOP("DefaultActions", "Датчик контакта")),
         ParameterDeclaration::action("onAction", QT_TRANSLATE_NOOP("DefaultActions", "Действие при замыкании")),
         ParameterDeclaration::action("offAction", QT_TRANSLATE_NOOP("DefaultActions", "Действие при размыкании"))},
        ":/defaults/contactorRelay.js", 6);
    createAction("Сравнение с константой", logic,
                 comparison(property("cmpProp", QT_TRANSLATE_NOOP("DefaultActions", "Свойство")),
                            number("constant", QT_TRANSLATE_NOOP("DefaultActions", "Константа"))),
                 ":/defaults/compareWithConstant.js", 7);
    createAction("Сравнение со свойством", logic,
                 comparison(property("firstProp", QT_TRANSLATE_NOOP("DefaultActions", "Первое свойство")),
                            property("secondProp", QT_TRANSLATE_NOOP("DefaultActions", "Второе свойство"))),
                 ":/defaults/compareWithProperty.js", 8);
    createAction("Выполнить с задержкой", logic,
                 {ParameterDeclaration::action("action", QT_TRANSLATE_NOOP("DefaultActions", "Действие")),
                  ParameterDeclaration::number("timeout", QT_TRANSLATE_NOOP("DefaultActions", "Задержка, с"), 0, 0,
                                               largestDelay)},
                 ":/defaults/executeWithTimeout.js", 9);
    createAction("Установить свойство", logic,
                 {property("cmpProp", QT_TRANSLATE_NOOP("DefaultActions", "Свойство")),
                  number("constant", QT_TRANSLATE_NOOP("DefaultActions", "Константа"))},
                 ":/defaults/setProperty.js", 10);

    if (m_shop.shopParts.isEmpty()) {
        Model::ShopPart part;
        part.uid = QUuid::createUuid();
        part.name = QStringLiteral("Объект");
        m_shop.shopParts.insert(part.uid, part);
    }
}

void DefaultsManager::createAction(const QString &name, const QString &category,
                                   const std::vector<ParameterDeclaration> &parameters, const QString &scriptResource,
                                   unsigned short number)
{
    QFile file(scriptResource);
    if (!file.open(QIODevice::ReadOnly)) {
        qCWarning(defaultsCategory).noquote() << QStringLiteral("Can not read resource path %1").arg(scriptResource);
        return;
    }
    const auto uid = uidForDefault(number);
    m_shop.actions.insert(uid, {uid, name, QString::fromUtf8(file.readAll()), category, parameters});
}

QUuid DefaultsManager::uidForDefault(unsigned short number)
{
    return Model::StandardBlueprints::persistentUID(number);
}
