// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMatrix4x4>
#include <QObject>
#include <QQuaternion>
#include <QVariantList>
#include <QVariantMap>
#include <QVector3D>

// The arithmetic of quaternions that QML lacks. Each operation is QQuaternion's of that name; angles are degrees.
class QuaternionHelper : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    Q_INVOKABLE QVector3D getRotationAxis(const QQuaternion &quaternion) const;
    Q_INVOKABLE float getRotationAngle(const QQuaternion &quaternion) const;
    Q_INVOKABLE QVariantMap getRotationAxisAndAngle(const QQuaternion &quaternion) const; // "axis" and "angle"
    Q_INVOKABLE QVector3D getEulerAngles(const QQuaternion &quaternion) const; // pitch, yaw, roll
    Q_INVOKABLE float getPitch(const QQuaternion &quaternion) const;
    Q_INVOKABLE float getYaw(const QQuaternion &quaternion) const;
    Q_INVOKABLE float getRoll(const QQuaternion &quaternion) const;
    Q_INVOKABLE QQuaternion inverted(const QQuaternion &quaternion) const;
    Q_INVOKABLE QQuaternion conjugated(const QQuaternion &quaternion) const;
    Q_INVOKABLE QQuaternion normalized(const QQuaternion &quaternion) const;
    Q_INVOKABLE float length(const QQuaternion &quaternion) const;
    Q_INVOKABLE float lengthSquared(const QQuaternion &quaternion) const;
    Q_INVOKABLE bool isIdentity(const QQuaternion &quaternion) const;
    Q_INVOKABLE bool isNull(const QQuaternion &quaternion) const;
    Q_INVOKABLE QVariantList toRotationMatrix(const QQuaternion &quaternion) const; // nine numbers, row by row
    Q_INVOKABLE QMatrix4x4 toRotationMatrix4x4(const QQuaternion &quaternion) const;
    Q_INVOKABLE QVector3D rotatedVector(const QQuaternion &quaternion, const QVector3D &vector) const;
    Q_INVOKABLE float dotProduct(const QQuaternion &left, const QQuaternion &right) const;
    Q_INVOKABLE QQuaternion fromAxes(const QVector3D &x, const QVector3D &y, const QVector3D &z) const;
    Q_INVOKABLE QQuaternion fromAxisAndAngle(const QVector3D &axis, float angle) const;
    Q_INVOKABLE QQuaternion fromAxisAndAngle(float x, float y, float z, float angle) const;
    Q_INVOKABLE QQuaternion fromDirection(const QVector3D &direction, const QVector3D &up) const;
    Q_INVOKABLE QQuaternion fromEulerAngles(const QVector3D &angles) const;
    Q_INVOKABLE QQuaternion fromEulerAngles(float pitch, float yaw, float roll) const;
    Q_INVOKABLE QQuaternion nlerp(const QQuaternion &from, const QQuaternion &to, float part) const;
    Q_INVOKABLE QQuaternion slerp(const QQuaternion &from, const QQuaternion &to, float part) const;
    Q_INVOKABLE QQuaternion rotationTo(const QVector3D &from, const QVector3D &to) const;
    Q_INVOKABLE QQuaternion mul(const QQuaternion &left, const QQuaternion &right) const;
    Q_INVOKABLE QQuaternion mul(const QQuaternion &quaternion, float factor) const;
    Q_INVOKABLE QVector3D mul(const QQuaternion &quaternion, const QVector3D &vector) const;
    Q_INVOKABLE QQuaternion div(const QQuaternion &quaternion, float divisor) const;
    Q_INVOKABLE QQuaternion plus(const QQuaternion &left, const QQuaternion &right) const;
    Q_INVOKABLE QQuaternion minus(const QQuaternion &left, const QQuaternion &right) const;
};
