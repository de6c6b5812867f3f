#include <gtest/gtest.h>

#include <cmath>

#include "graphics/Vector.h"

namespace {

void expectVector(const Vector& v, float x, float y, float z, float w) {
    EXPECT_FLOAT_EQ(v.x, x);
    EXPECT_FLOAT_EQ(v.y, y);
    EXPECT_FLOAT_EQ(v.z, z);
    EXPECT_FLOAT_EQ(v.w, w);
}

TEST(VectorTest, ArithmeticIsPerComponentInPlaceAndWithAResult) {
    const Vector a(1, 2, 3, 4), b(2, 4, 6, 8);
    expectVector(a + b, 3, 6, 9, 12);
    expectVector(b - a, 1, 2, 3, 4);
    expectVector(a * b, 2, 8, 18, 32);
    expectVector(b / a, 2, 2, 2, 2);
    Vector c = a;
    c += b;
    c -= Vector(1);
    c *= Vector(2);
    c /= Vector(4);
    expectVector(c, 1, 2.5f, 4, 5.5f);
    expectVector(Vector(), 0, 0, 0, 0);
    expectVector(Vector(-3, 5, 0.5f, 9).clamp(Vector(0), Vector(1, 4, 1, 10)), 0, 4, 0.5f, 9);
}

TEST(VectorTest, LengthAndDotCountAllFourComponents) {
    EXPECT_FLOAT_EQ(Vector(1, 2, 3, 4).dot(Vector(4, 3, 2, 1)), 20);
    EXPECT_FLOAT_EQ(Vector(0, 0, 3, 4).length(), 5);
    EXPECT_FLOAT_EQ(Vector(1, 1, 1, 1).length(), 2);
}

TEST(VectorTest, NormalizeIsCloseToUnitLength) {
    for (const Vector& v : {Vector(3, 4, 0, 0), Vector(0.001f, 0, 0, 0), Vector(1e4f, -2e4f, 5, 1)}) {
        const Vector n = v.normalize();
        EXPECT_NEAR(n.length(), 1.0f, 0.005f);
        // Same direction.
        EXPECT_NEAR(n.dot(v), v.length(), v.length() * 0.005f);
    }
    expectVector(Vector().normalize(), 0, 0, 0, 0);
}

TEST(VectorTest, CrossWorksOnThreeComponents) {
    expectVector(Vector(1, 0, 0, 7).cross(Vector(0, 1, 0, 9)), 0, 0, 1, 0);
    expectVector(Vector(0, 1, 0, 0).cross(Vector(1, 0, 0, 0)), 0, 0, -1, 0);
    expectVector(Vector(2, 3, 4, 0).cross(Vector(5, 6, 7, 0)), -3, 6, -3, 0);
}

TEST(VectorTest, RowVectorTimesMatrix) {
    // Translation sits in the bottom row for row vectors.
    Matrix4 m = {{{1, 0, 0, 0}, {0, 2, 0, 0}, {0, 0, 1, 0}, {10, 20, 30, 1}}};
    expectVector(Vector(1, 1, 1, 1) * m, 11, 22, 31, 1);
    Matrix4 swap = {{{0, 1, 0, 0}, {1, 0, 0, 0}, {0, 0, 0, 1}, {0, 0, 1, 0}}};
    expectVector(Vector(1, 2, 3, 4) * swap, 2, 1, 4, 3);
}

TEST(VectorTest, SinCosGivesBoth) {
    float s = 0, c = 0;
    sinCos(static_cast<float>(M_PI) / 6, s, c);
    EXPECT_NEAR(s, 0.5f, 1e-6f);
    EXPECT_NEAR(c, std::sqrt(3.0f) / 2, 1e-6f);
}

}  // namespace
