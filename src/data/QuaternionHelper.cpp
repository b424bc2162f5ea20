// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/QuaternionHelper.h"

QVector3D QuaternionHelper::getRotationAxis(const QQuaternion &quaternion) const
{
    QVector3D axis;
    float angle = 0.0F;
    quaternion.getAxisAndAngle(&axis, &angle);
    return axis;
}

float QuaternionHelper::getRotationAngle(const QQuaternion &quaternion) const
{
    QVector3D axis;
    float angle = 0.0F;
    quaternion.getAxisAndAngle(&axis, &angle);
    return angle;
}

QVariantMap QuaternionHelper::getRotationAxisAndAngle(const QQuaternion &quaternion) const
{
    QVector3D axis;
    float angle = 0.0F;
    quaternion.getAxisAndAngle(&axis, &angle);
    return {{QStringLiteral("axis"), axis}, {QStringLiteral("angle"), static_cast<double>(angle)}};
}

QVector3D QuaternionHelper::getEulerAngles(const QQuaternion &quaternion) const
{
    return quaternion.toEulerAngles();
}

float QuaternionHelper::getPitch(const QQuaternion &quaternion) const
{
    return quaternion.toEulerAngles().x();
}

float QuaternionHelper::getYaw(const QQuaternion &quaternion) const
{
    return quaternion.toEulerAngles().y();
}

float QuaternionHelper::getRoll(const QQuaternion &quaternion) const
{
    return quaternion.toEulerAngles().z();
}

QQuaternion QuaternionHelper::inverted(const QQuaternion &quaternion) const
{
    return quaternion.inverted();
}

QQuaternion QuaternionHelper::conjugated(const QQuaternion &quaternion) const
{
    return quaternion.conjugated();
}

QQuaternion QuaternionHelper::normalized(const QQuaternion &quaternion) const
{
    return quaternion.normalized();
}

float QuaternionHelper::length(const QQuaternion &quaternion) const
{
    return quaternion.length();
}

float QuaternionHelper::lengthSquared(const QQuaternion &quaternion) const
{
    return quaternion.lengthSquared();
}

bool QuaternionHelper::isIdentity(const QQuaternion &quaternion) const
{
    return quaternion.isIdentity();
}

bool QuaternionHelper::isNull(const QQuaternion &quaternion) const
{
    return quaternion.isNull();
}

QVariantList QuaternionHelper::toRotationMatrix(const QQuaternion &quaternion) const
{
    const auto matrix = quaternion.toRotationMatrix();
    QVariantList numbers;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column)
            numbers << static_cast<double>(matrix(row, column));
    }
    return numbers;
}

QMatrix4x4 QuaternionHelper::toRotationMatrix4x4(const QQuaternion &quaternion) const
{
    return QMatrix4x4(quaternion.toRotationMatrix());
}

QVector3D QuaternionHelper::rotatedVector(const QQuaternion &quaternion, const QVector3D &vector) const
{
    return quaternion.rotatedVector(vector);
}

float QuaternionHelper::dotProduct(const QQuaternion &left, const QQuaternion &right) const
{
    return QQuaternion::dotProduct(left, right);
}

QQuaternion QuaternionHelper::fromAxes(const QVector3D &x, const QVector3D &y, const QVector3D &z) const
{
    return QQuaternion::fromAxes(x, y, z);
}

QQuaternion QuaternionHelper::fromAxisAndAngle(const QVector3D &axis, float angle) const
{
    return QQuaternion::fromAxisAndAngle(axis, angle);
}

QQuaternion QuaternionHelper::fromAxisAndAngle(float x, float y, float z, float angle) const
{
    return QQuaternion::fromAxisAndAngle(x, y, z, angle);
}

QQuaternion QuaternionHelper::fromDirection(const QVector3D &direction, const QVector3D &up) const
{
    return QQuaternion::fromDirection(direction, up);
}

QQuaternion QuaternionHelper::fromEulerAngles(const QVector3D &angles) const
{
    return QQuaternion::fromEulerAngles(angles);
}

QQuaternion QuaternionHelper::fromEulerAngles(float pitch, float yaw, float roll) const
{
    return QQuaternion::fromEulerAngles(pitch, yaw, roll);
}

QQuaternion QuaternionHelper::nlerp(const QQuaternion &from, const QQuaternion &to, float part) const
{
    return QQuaternion::nlerp(from, to, part);
}

QQuaternion QuaternionHelper::slerp(const QQuaternion &from, const QQuaternion &to, float part) const
{
    return QQuaternion::slerp(from, to, part);
}

QQuaternion QuaternionHelper::rotationTo(const QVector3D &from, const QVector3D &to) const
{
    return QQuaternion::rotationTo(from, to);
}

QQuaternion QuaternionHelper::mul(const QQuaternion &left, const QQuaternion &right) const
{
    return left * right;
}

QQuaternion QuaternionHelper::mul(const QQuaternion &quaternion, float factor) const
{
    return quaternion * factor;
}

QVector3D QuaternionHelper::mul(const QQuaternion &quaternion, const QVector3D &vector) const
{
    return quaternion * vector;
}

QQuaternion QuaternionHelper::div(const QQuaternion &quaternion, float divisor) const
{
    return quaternion / divisor;
}

QQuaternion QuaternionHelper::plus(const QQuaternion &left, const QQuaternion &right) const
{
    return left + right;
}

QQuaternion QuaternionHelper::minus(const QQuaternion &left, const QQuaternion &right) const
{
    return left - right;
}
