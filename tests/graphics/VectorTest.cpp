#include <gtest/gtest.h>

#include <vector>

#include "graphics/Vector.h"

namespace {

using Parts = std::vector<float>;
Parts parts(const Vector& v) { return {v.x, v.y, v.z, v.w}; }

TEST(VectorTest, ArithmeticAndClampArePerComponentCrossTakesThreeMatricesTakeRowsAndLengthsAllFour) {
    const Vector a(1, 2, 3, 4), b(2, 4, 6, 8);
    EXPECT_EQ(parts(a + b * a - b / a), (Parts{1, 8, 19, 34}));
    EXPECT_EQ(parts(Vector(-3, 5, 0.5f, 9).clamp(Vector(0), Vector(1, 4, 1, 10))), (Parts{0, 4, 0.5f, 9}));
    EXPECT_EQ(parts(Vector(2, 3, 4, 7).cross(Vector(5, 6, 7, 9))), (Parts{-3, 6, -3, 0}));
    // The translation of a row vector's matrix sits in the bottom row.
    const Matrix4 m = {{{0, 1, 0, 0}, {2, 0, 0, 0}, {0, 0, 1, 0}, {10, 20, 30, 1}}};
    EXPECT_EQ(parts(Vector(1, 2, 3, 1) * m), (Parts{14, 21, 33, 1}));
    EXPECT_FLOAT_EQ(Vector(1, 2, 3, 4).dot(Vector(4, 3, 2, 1)), 20);
    EXPECT_FLOAT_EQ(Vector(1, 1, 1, 1).length(), 2);
    for (const Vector& v : {Vector(3, 4, 0, 0), Vector(0.001f, 0, 0, 0), Vector(1e4f, -2e4f, 5, 1)}) {
        EXPECT_NEAR(v.normalize().length(), 1.0f, 0.005f);
        EXPECT_NEAR(v.normalize().dot(v), v.length(), v.length() * 0.005f) << "the same direction";
    }
    EXPECT_EQ(parts(Vector().normalize()), (Parts{0, 0, 0, 0}));
}

}  // namespace
