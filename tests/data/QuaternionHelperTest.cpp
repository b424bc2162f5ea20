// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/QuaternionHelper.h"
#include "support/TestBase.h"

#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <memory>

namespace {

// The value of that expression in QML, where "Quat" is the helper, and "q" and "r" are quarter turns about X and Z.
QVariant evaluated(const QString &expression)
{
    QuaternionHelper helper;
    QQmlEngine engine;
    engine.rootContext()->setContextProperty("Quat", &helper);
    QQmlComponent component(&engine);
    component.setData("import QtQuick 2.15\nQtObject {\n"
                      "property quaternion q: Quat.fromAxisAndAngle(Qt.vector3d(1, 0, 0), 90)\n"
                      "property quaternion r: Quat.fromAxisAndAngle(0, 0, 1, 90)\n"
                      "property var result: "
                          + expression.toUtf8() + "\n}",
                      QUrl("qrc:/test.qml"));
    const std::unique_ptr<QObject> object(component.create());
    if (!object)
        qWarning() << component.errorString();
    return object ? object->property("result") : QVariant();
}

bool isNear(const QVariant &value, const QVariant &expected)
{
    if (expected.userType() == QMetaType::QVector3D)
        return value.userType() == QMetaType::QVector3D
            && (value.value<QVector3D>() - expected.value<QVector3D>()).length() < 1e-4F;
    if (expected.userType() == QMetaType::QQuaternion)
        return value.userType() == QMetaType::QQuaternion
            && (value.value<QQuaternion>() - expected.value<QQuaternion>()).length() < 1e-5F;
    if (expected.userType() == QMetaType::Bool)
        return value.userType() == QMetaType::Bool && value == expected;
    if (expected.userType() == QMetaType::QString)
        return value == expected;
    return value.canConvert<double>() && qAbs(value.toDouble() - expected.toDouble()) < 1e-4;
}

} // namespace

class QuaternionHelperTest : public TestBase
{
    Q_OBJECT

private slots:
    void calculatesForQml_data()
    {
        QTest::addColumn<QString>("expression");
        QTest::addColumn<QVariant>("expected");
        const float half = 0.70710678F;
        const auto row = [](const char *expression, const QVariant &expected) {
            QTest::newRow(expression) << QString(expression) << expected;
        };

        row("q", QQuaternion(half, half, 0, 0));
        row("r", QQuaternion(half, 0, 0, half));
        row("Quat.getRotationAxis(q)", QVector3D(1, 0, 0));
        row("Quat.getRotationAngle(q)", 90.0);
        row("Quat.getRotationAxisAndAngle(r).axis", QVector3D(0, 0, 1));
        row("Quat.getRotationAxisAndAngle(r).angle", 90.0);
        row("Quat.getEulerAngles(r)", QVector3D(0, 0, 90));
        row("Quat.getPitch(Quat.fromEulerAngles(10, 20, 30))", 10.0);
        row("Quat.getYaw(Quat.fromEulerAngles(10, 20, 30))", 20.0);
        row("Quat.getRoll(Quat.fromEulerAngles(10, 20, 30))", 30.0);
        row("Quat.getEulerAngles(Quat.fromEulerAngles(Qt.vector3d(10, 20, 30)))", QVector3D(10, 20, 30));
        row("Quat.inverted(Qt.quaternion(0, 2, 0, 0))", QQuaternion(0, -0.5F, 0, 0));
        row("Quat.conjugated(Qt.quaternion(1, 2, 3, 4))", QQuaternion(1, -2, -3, -4));
        row("Quat.normalized(Qt.quaternion(0, 0, 5, 0))", QQuaternion(0, 0, 1, 0));
        row("Quat.normalized(Qt.quaternion(0, 0, 0, 0))", QQuaternion(0, 0, 0, 0));
        row("Quat.length(Qt.quaternion(2, 2, 2, 2))", 4.0);
        row("Quat.lengthSquared(Qt.quaternion(1, 2, 3, 4))", 30.0);
        row("Quat.isIdentity(Qt.quaternion(1, 0, 0, 0))", true);
        row("Quat.isIdentity(q)", false);
        row("Quat.isNull(Qt.quaternion(0, 0, 0, 0))", true);
        row("Quat.isNull(q)", false);
        row("Quat.toRotationMatrix(r).map(n => Math.round(n)).join(' ')", "0 -1 0 1 0 0 0 0 1");
        row("Quat.toRotationMatrix4x4(r).times(Qt.vector3d(1, 0, 0))", QVector3D(0, 1, 0));
        row("Quat.rotatedVector(q, Qt.vector3d(0, 1, 0))", QVector3D(0, 0, 1));
        row("Quat.dotProduct(Qt.quaternion(1, 2, 3, 4), Qt.quaternion(5, 6, 7, 8))", 70.0);
        row("Quat.fromAxes(Qt.vector3d(0, 1, 0), Qt.vector3d(-1, 0, 0), Qt.vector3d(0, 0, 1))",
            QQuaternion(half, 0, 0, half));
        row("Quat.rotatedVector(Quat.fromDirection(Qt.vector3d(1, 0, 0), Qt.vector3d(0, 1, 0)), Qt.vector3d(0, 0, 1))",
            QVector3D(1, 0, 0));
        row("Quat.getRotationAngle(Quat.nlerp(Qt.quaternion(1, 0, 0, 0), q, 0.5))", 45.0);
        row("Quat.getRotationAngle(Quat.slerp(Qt.quaternion(1, 0, 0, 0), q, 0.25))", 22.5);
        row("Quat.rotationTo(Qt.vector3d(1, 0, 0), Qt.vector3d(0, 1, 0))", QQuaternion(half, 0, 0, half));
        row("Quat.mul(q, r)", QQuaternion(0.5F, 0.5F, -0.5F, 0.5F));
        row("Quat.mul(r, q)", QQuaternion(0.5F, 0.5F, 0.5F, 0.5F));
        row("Quat.mul(Qt.quaternion(1, 2, 3, 4), 2)", QQuaternion(2, 4, 6, 8));
        row("Quat.mul(Qt.quaternion(1, 2, 3, 4), 0.5)", QQuaternion(0.5F, 1, 1.5F, 2));
        row("Quat.mul(q, Qt.vector3d(0, 1, 0))", QVector3D(0, 0, 1));
        row("Quat.div(Qt.quaternion(2, 4, 6, 8), 2)", QQuaternion(1, 2, 3, 4));
        row("Quat.plus(Qt.quaternion(1, 2, 3, 4), Qt.quaternion(5, 6, 7, 8))", QQuaternion(6, 8, 10, 12));
        row("Quat.minus(Qt.quaternion(1, 2, 3, 4), Qt.quaternion(5, 7, 9, 11))", QQuaternion(-4, -5, -6, -7));
    }

    void calculatesForQml()
    {
        QFETCH(QString, expression);
        QFETCH(QVariant, expected);

        const auto value = evaluated(expression);

        QString text;
        QDebug(&text) << value;
        QVERIFY2(isNear(value, expected), qPrintable(text));
    }
};

ONDIRA_TEST(QuaternionHelperTest)
#include "QuaternionHelperTest.moc"
