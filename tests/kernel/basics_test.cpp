#include "kernel/extents.h"
#include "kernel/matrix3d.h"

#include <gtest/gtest.h>

#include <limits>
#include <numbers>

namespace
{

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kPi = std::numbers::pi;

} // namespace

TEST(Vector3d, PerpVectorFollowsTheArbitraryAxisRule)
{
    EXPECT_TRUE(AcGeVector3d(3, 4, 0).perpVector().isEqualTo({-4, 3, 0}));
    EXPECT_TRUE(AcGeVector3d(0, 0, 1).perpVector().isEqualTo({1, 0, 0}));
    EXPECT_TRUE(AcGeVector3d(0.015, -0.015, 1).perpVector().isEqualTo({1, 0, -0.015}));
    EXPECT_TRUE(AcGeVector3d(0.016, 0, 1).perpVector().isEqualTo({0, 0.016, 0}));
}

TEST(Vector3d, NormalizeLeavesAVectorWithoutLengthAlone)
{
    EXPECT_TRUE(AcGeVector3d(0, 3, 4).normal().isEqualTo({0, 0.6, 0.8}));
    EXPECT_DOUBLE_EQ(AcGeVector3d(1e-11, 0, 0).normal().x, 1e-11);
    EXPECT_DOUBLE_EQ(AcGeVector3d(1e-3, 0, 0).normal(AcGeTol{0.01}).x, 1e-3);
}

TEST(Point3d, EqualityUsesTheDistanceAndRefusesNan)
{
    const AcGePoint3d p{10, 20, 0};
    EXPECT_TRUE(p.isEqualTo({10, 20 + 5e-11, 0}));
    EXPECT_FALSE(p.isEqualTo({10 + 8e-11, 20 + 8e-11, 0}));
    EXPECT_FALSE(p.isEqualTo({10, 20.001, 0}));
    EXPECT_TRUE(p.isEqualTo({10, 20.001, 0}, AcGeTol{0.01}));
    EXPECT_FALSE(p.isEqualTo({kNan, 20, 0}));
}

TEST(Matrix3d, AlignsCoordinateSystems)
{
    const AcGePoint3d origin{100, 50, 0};
    AcGeMatrix3d m;
    m.setToAlignCoordSys(AcGePoint3d::kOrigin, AcGeVector3d::kXAxis, AcGeVector3d::kYAxis, AcGeVector3d::kZAxis, origin,
                         {0, 1, 0}, {-1, 0, 0}, {0, 0, 1});
    EXPECT_TRUE((m * AcGePoint3d(1, 0, 0)).isEqualTo({100, 51, 0}));
    EXPECT_TRUE((m * AcGeVector3d(1, 0, 0)).isEqualTo({0, 1, 0}));

    AcGeMatrix3d back;
    back.setToAlignCoordSys(origin, {0, 1, 0}, {-1, 0, 0}, {0, 0, 1}, AcGePoint3d::kOrigin, AcGeVector3d::kXAxis,
                            AcGeVector3d::kYAxis, AcGeVector3d::kZAxis);
    EXPECT_TRUE((back * m).isEqualTo(AcGeMatrix3d::kIdentity));
}

TEST(Matrix3d, InverseUndoesAnyMapThatHasOne)
{
    const AcGeMatrix3d m = AcGeMatrix3d::translation({5, -7, 2}) * AcGeMatrix3d::rotation(0.7, {1, 2, 3}, {4, 4, 4}) *
                           AcGeMatrix3d::scaling(2, -3, 0.5);
    EXPECT_TRUE((m * m.inverse()).isEqualTo(AcGeMatrix3d::kIdentity));
    EXPECT_NEAR(m.det(), -3.0, 1e-12);
    EXPECT_TRUE(AcGeMatrix3d::scaling(1, 0, 1).inverse().isEqualTo(AcGeMatrix3d::kIdentity));
    EXPECT_TRUE(
        (AcGeMatrix3d::rotation(kPi / 2, AcGeVector3d::kZAxis, {1, 0, 0}) * AcGePoint3d(2, 0, 0)).isEqualTo({1, 1, 0}));
    EXPECT_TRUE((AcGeMatrix3d::scaling(2, {1, 1, 0}) * AcGePoint3d(2, 3, 0)).isEqualTo({3, 5, 0}));
}

TEST(Matrix3d, PlaneToWorldFollowsTheArbitraryAxisRule)
{
    EXPECT_TRUE(AcGeMatrix3d::planeToWorld({0, 0, 1}).isEqualTo(AcGeMatrix3d::kIdentity));
    EXPECT_TRUE(AcGeMatrix3d::planeToWorld({0, 0, 0}).isEqualTo(AcGeMatrix3d::kIdentity));
    EXPECT_TRUE((AcGeMatrix3d::planeToWorld({0, 0, -1}) * AcGePoint3d(2, 3, 5)).isEqualTo({-2, 3, -5}));
    EXPECT_TRUE((AcGeMatrix3d::planeToWorld({0, -1, 0}) * AcGePoint3d(2, 3, 5)).isEqualTo({2, -5, 3}));
    const AcGeVector3d slanted{0.3, -0.4, 0.6};
    EXPECT_TRUE(
        (AcGeMatrix3d::planeToWorld(slanted) * AcGeMatrix3d::worldToPlane(slanted)).isEqualTo(AcGeMatrix3d::kIdentity));
}

TEST(Extents, LeavesOutWhatIsNotFinite)
{
    AcGeExtents box;
    EXPECT_FALSE(box.isValid());
    box.addPoint({kNan, 0, 0});
    EXPECT_FALSE(box.isValid());
    box.addPoint({1, 5, 0});
    box.addPoint({-1, 7, 2});
    EXPECT_TRUE(box.isValid());
    EXPECT_TRUE(box.minPoint().isEqualTo({-1, 5, 0}));
    EXPECT_TRUE(box.maxPoint().isEqualTo({1, 7, 2}));
    EXPECT_TRUE(box.meetsInPlan(AcGeExtents({1, 7, 9}, {4, 9, 9})));
    EXPECT_FALSE(box.meetsInPlan(AcGeExtents({2, 5, 0}, {4, 9, 0})));
    EXPECT_FALSE(box.meetsInPlan(AcGeExtents()));
}
