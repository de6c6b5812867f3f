#include "graphics/Vector.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>

Vector& Vector::operator+=(const Vector& o) {
    x += o.x; y += o.y; z += o.z; w += o.w;
    return *this;
}

Vector& Vector::operator-=(const Vector& o) {
    x -= o.x; y -= o.y; z -= o.z; w -= o.w;
    return *this;
}

Vector& Vector::operator*=(const Vector& o) {
    x *= o.x; y *= o.y; z *= o.z; w *= o.w;
    return *this;
}

Vector& Vector::operator/=(const Vector& o) {
    x /= o.x; y /= o.y; z /= o.z; w /= o.w;
    return *this;
}

Vector operator+(Vector a, const Vector& b) { return a += b; }
Vector operator-(Vector a, const Vector& b) { return a -= b; }
Vector operator*(Vector a, const Vector& b) { return a *= b; }
Vector operator/(Vector a, const Vector& b) { return a /= b; }

Vector Vector::clamp(const Vector& lo, const Vector& hi) const {
    return Vector(std::min(std::max(x, lo.x), hi.x), std::min(std::max(y, lo.y), hi.y),
                  std::min(std::max(z, lo.z), hi.z), std::min(std::max(w, lo.w), hi.w));
}

float Vector::dot(const Vector& o) const { return x * o.x + y * o.y + z * o.z + w * o.w; }

float Vector::length() const { return std::sqrt(dot(*this)); }

namespace {

// The classic bit-level estimate with one Newton step: about 0.2 % off, which
// is plenty for directions.
float approxInverseSqrt(float v) {
    uint32_t bits;
    std::memcpy(&bits, &v, sizeof bits);
    bits = 0x5f3759df - (bits >> 1);
    float r;
    std::memcpy(&r, &bits, sizeof r);
    return r * (1.5f - 0.5f * v * r * r);
}

}  // namespace

Vector Vector::normalize() const {
    float scale = approxInverseSqrt(dot(*this));
    return Vector(x * scale, y * scale, z * scale, w * scale);
}

Vector Vector::cross(const Vector& o) const {
    return Vector(y * o.z - z * o.y, z * o.x - x * o.z, x * o.y - y * o.x, 0);
}

Vector operator*(const Vector& row, const Matrix4& matrix) {
    const float in[4] = {row.x, row.y, row.z, row.w};
    float out[4];
    for (int col = 0; col < 4; ++col) {
        out[col] = 0;
        for (int k = 0; k < 4; ++k) out[col] += in[k] * matrix.m[k][col];
    }
    return Vector(out[0], out[1], out[2], out[3]);
}

void sinCos(float angle, float& s, float& c) {
    s = std::sin(angle);
    c = std::cos(angle);
}
