#pragma once

// Four floats by value. In gameplay x, y are floor coordinates, z the height
// above the floor and w stays 0; arithmetic is per component throughout.
struct Vector {
    float x, y, z, w;

    Vector() : x(0), y(0), z(0), w(0) {}
    explicit Vector(float all) : x(all), y(all), z(all), w(all) {}
    Vector(float x, float y, float z, float w) : x(x), y(y), z(z), w(w) {}

    Vector& operator+=(const Vector& o);
    Vector& operator-=(const Vector& o);
    Vector& operator*=(const Vector& o);
    Vector& operator/=(const Vector& o);

    // Each component held between the matching ones of lo and hi.
    Vector clamp(const Vector& lo, const Vector& hi) const;
    // Over all four components.
    float dot(const Vector& o) const;
    float length() const;
    // Fast, approximate: multiplies by an estimated inverse square root.
    Vector normalize() const;
    // x, y, z only; w of the result is 0.
    Vector cross(const Vector& o) const;
};

Vector operator+(Vector a, const Vector& b);
Vector operator-(Vector a, const Vector& b);
Vector operator*(Vector a, const Vector& b);
Vector operator/(Vector a, const Vector& b);

// Row-major 4x4; a row vector is multiplied from the left.
struct Matrix4 {
    float m[4][4];
};

Vector operator*(const Vector& row, const Matrix4& matrix);

// Both in one call; the angle is in radians.
void sinCos(float angle, float& s, float& c);
