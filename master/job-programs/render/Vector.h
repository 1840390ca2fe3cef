#pragma once

#include <cmath>

/// A point, a direction or a colour (red, green, blue; linear light, 1 is white).
struct Vector
{
    double x = 0;
    double y = 0;
    double z = 0;
};

inline Vector operator+(const Vector& a, const Vector& b)
{
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
inline Vector operator-(const Vector& a, const Vector& b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
inline Vector operator*(const Vector& a, double factor)
{
    return {a.x * factor, a.y * factor, a.z * factor};
}
/// Channel by channel: light of one colour on a surface of another.
inline Vector operator*(const Vector& a, const Vector& b)
{
    return {a.x * b.x, a.y * b.y, a.z * b.z};
}
inline double Dot(const Vector& a, const Vector& b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
inline Vector Cross(const Vector& a, const Vector& b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
inline Vector Normal(const Vector& a)
{
    return a * (1 / std::sqrt(Dot(a, a)));
}
inline Vector Mix(const Vector& a, const Vector& b, double share)
{
    return a * (1 - share) + b * share;
}
inline Vector Mirror(const Vector& direction, const Vector& normal)
{
    return direction - normal * (2 * Dot(direction, normal));
}
