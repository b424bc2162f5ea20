// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/Actions.h"
#include "model/Position.h"

#include <QByteArray>
#include <QMetaType>
#include <QString>
#include <QUuid>
#include <boost/optional.hpp>
#include <vector>

// What stands on a plan beside zones. Lengths are canvas units, the canvas being 4096 by 4096.
namespace Model {

// A named button that runs a list of actions.
struct Button
{
    QUuid uid;
    QUuid partUid;
    QString name;
    Position position;
    double width = 80.0;
    double height = 80.0;
    QString onColor; // of its face, in a form that QColor reads
    QString offColor;
    bool toggle = false; // a press toggles the state; otherwise it is momentary
    ActionSequence blueprints;
};

struct ButtonState
{
    enum class State { Off = 0, On = 1 };

    QUuid uid; // of the button
    State state = State::Off;
};

// A text and an icon, which may show a value of a device.
struct Indicator
{
    // The parameter of a device that an indicator of type DeviceValue shows.
    struct DisplayValue
    {
        QUuid device;
        QString property;
    };

    static constexpr int text = 0; // of indicatorType
    static constexpr int deviceValue = 1;

    QUuid uid;
    QUuid partUid;
    int indicatorType = text;
    QString label;
    QString icon; // of the icon set, such as "alert/error_outline"; empty: none
    Position position;
    double width = 100.0;
    double height = 100.0;
    QString textColor = QStringLiteral("#000000");
    QString iconColor = QStringLiteral("#F00000");
    unsigned int horizontalAlignment = 0; // 0 left, 1 right, 2 centre, 3 justified
    boost::optional<DisplayValue> displayValue;
};

// What the server's rules override of an indicator. An absent field leaves the indicator's own; an empty one does not.
struct IndicatorState
{
    QUuid uid; // of the indicator
    double opacity = 1.0; // above 0: visible
    boost::optional<QString> text;
    boost::optional<QString> textColor;
    boost::optional<QString> icon;
    boost::optional<QString> iconColor;
};

// A picture on a plan.
struct ImageItem
{
    // The picture itself. It never travels in a document.
    struct Image
    {
        Image() = default;
        Image(const QByteArray &data, const QString &format);

        QByteArray data; // the file as it is
        QString format; // the suffix of the file, such as "png"

        // A file that cannot be opened gives an empty format and null data.
        static Image fromFile(const QString &path);
    };

    QUuid uid;
    QUuid partUid;
    QString name;
    double x = 0.0;
    double y = 0.0;
    double width = 0.0; // 0: the natural size of the picture
    double height = 0.0;
    double cropX = 0.0; // held and passed along
    double cropY = 0.0;
    double cropWidth = 0.0;
    double cropHeight = 0.0;
    double opacity = 1.0;
    bool onTop = false; // above the tiles of zones
    bool locked = false; // not movable in edit mode
    boost::optional<Image> image; // only while an upload is on its way
};

// A mesh in the three-dimensional view of a plan.
struct View3DItem
{
    QUuid uid;
    QUuid partUid;
    QString name;
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    double scaleX = 1.0;
    double scaleY = 1.0;
    double scaleZ = 1.0;
    double rotationX = 0.0; // Euler angles in degrees
    double rotationY = 0.0;
    double rotationZ = 0.0;
    double opacity = 1.0;
    bool locked = false;
    QByteArray modelData; // the mesh file; only in the binary form

    QByteArray hash() const; // SHA-256 of modelData: whether a mesh has changed
};

bool operator==(const Button &left, const Button &right);
bool operator==(const ButtonState &left, const ButtonState &right);
bool operator==(const Indicator::DisplayValue &left, const Indicator::DisplayValue &right);
bool operator==(const Indicator &left, const Indicator &right);
bool operator==(const IndicatorState &left, const IndicatorState &right);
bool operator==(const ImageItem::Image &left, const ImageItem::Image &right);
bool operator==(const ImageItem &left, const ImageItem &right);
bool operator==(const View3DItem &left, const View3DItem &right);

} // namespace Model

Q_DECLARE_METATYPE(Model::Button)
Q_DECLARE_METATYPE(Model::ButtonState)
Q_DECLARE_METATYPE(Model::Indicator)
Q_DECLARE_METATYPE(Model::IndicatorState)
Q_DECLARE_METATYPE(Model::ImageItem)
Q_DECLARE_METATYPE(Model::View3DItem)
Q_DECLARE_METATYPE(std::vector<Model::Button>)
Q_DECLARE_METATYPE(std::vector<Model::ButtonState>)
Q_DECLARE_METATYPE(std::vector<Model::Indicator>)
Q_DECLARE_METATYPE(std::vector<Model::IndicatorState>)
Q_DECLARE_METATYPE(std::vector<Model::ImageItem>)
Q_DECLARE_METATYPE(std::vector<Model::View3DItem>)
