// SPDX-License-Identifier: MIT
#include <editor/viewport/ksOrbitCamera.h>

#include <gtest/gtest.h>

#include <cmath>

namespace {

class ksOrbitCameraTest : public testing::Test
{
protected:
    ksOrbitCameraTest()
    {
        camera.setSize(QSizeF(600, 400));
        camera.frame(box);
    }

    const ksBounds box{QVector3D(1, 2, 3), QVector3D(7, 3, 5)};
    ksOrbitCamera camera;
};

/// How far \a point is from \a ray.
float distanceTo(const ksRay &ray, const QVector3D &point)
{
    return QVector3D::crossProduct(point - ray.origin, ray.direction.normalized()).length();
}

} // namespace

TEST_F(ksOrbitCameraTest, FramesABoxAsLargeAsItFits)
{
    for (const float turn : {0.0F, 30.0F, 200.0F}) {
        camera.orbit(turn, turn / 10);
        camera.frame(box);
        QRectF seen;
        for (const QVector3D &corner : box.corners()) {
            const QPointF place = camera.project(corner);
            EXPECT_TRUE(QRectF(0, 0, 600, 400).contains(place)) << place.x() << ' ' << place.y();
            seen = seen.united(QRectF(place, QSizeF(1, 1)));
        }
        EXPECT_GT(std::max(seen.width() / 600, seen.height() / 400), 0.85);
        EXPECT_NEAR(seen.center().x(), 300, 12);
        EXPECT_NEAR(seen.center().y(), 200, 12);
    }
}

TEST_F(ksOrbitCameraTest, LooksAlongTheRayOfAPlace)
{
    const QVector3D point(2, 2.5F, 4);
    EXPECT_LT(distanceTo(camera.rayAt(camera.project(point)), point), 1e-4F);
    const QPointF beside = camera.project(point) + QPointF(1, 0);
    EXPECT_NEAR(distanceTo(camera.rayAt(beside), point), camera.pixelAt(point), 0.1F * camera.pixelAt(point));
    const QVector3D behind = 2 * camera.eye() - point;
    EXPECT_FALSE(camera.isInFront(behind));
    EXPECT_FALSE(QRectF(0, 0, 600, 400).contains(camera.project(behind)));
}

TEST_F(ksOrbitCameraTest, SeesASmallBoxInALargeScene)
{
    camera.setScene({QVector3D(-1000, -1000, -1000), QVector3D(1000, 1000, 1000)});
    const ksBounds small{QVector3D(1, 2, 3), QVector3D(1.1F, 2.1F, 3.1F)};
    camera.frame(small);
    for (const QVector3D &corner : small.corners())
        EXPECT_LE(std::abs(camera.viewProjection().map(corner).z()), 1);
    EXPECT_LE(camera.viewProjection().map(QVector3D(-1000, 0, -1000)).z(), 1);
}

TEST_F(ksOrbitCameraTest, KnowsTheFrameAroundABox)
{
    QMatrix4x4 matrix;
    matrix.translate(1, 0, 0);
    const QRectF frame = camera.frameOf(box, matrix);
    double left = 1e6;
    for (const QVector3D &corner : box.corners()) {
        EXPECT_TRUE(frame.contains(camera.project(matrix.map(corner))));
        left = std::min(left, camera.project(matrix.map(corner)).x());
    }
    EXPECT_NEAR(frame.left(), left - 1, 1e-3);
    EXPECT_TRUE(camera.frameOf({camera.eye(), box.high}, {}).contains(QPointF(-1e6, 1e6)))
        << "some of it is beside the camera";
    EXPECT_FALSE(camera.frameOf({box.high, box.high}, {}).isEmpty());
}

TEST_F(ksOrbitCameraTest, ZoomsAboutAPlaceAndPansWithTheMouse)
{
    const QVector3D middle =
        camera.rayAt(QPointF(300, 200)).meetPlane(box.centre(), camera.eye() - box.centre()).value();
    const QPointF place(150, 120);
    const QVector3D held =
        camera.rayAt(place).meetPlane(middle, camera.rayAt(QPointF(300, 200)).direction).value();
    const float before = camera.pixelAt(middle);
    camera.zoom(0.5F, place);
    EXPECT_NEAR(camera.project(held).x(), place.x(), 0.5);
    EXPECT_NEAR(camera.project(held).y(), place.y(), 0.5);
    EXPECT_LT(camera.pixelAt(middle), 0.7F * before);
    const QPointF old = camera.project(middle);
    camera.pan(QPointF(20, -10));
    EXPECT_NEAR(camera.project(middle).x(), old.x() + 20, 1.5);
    EXPECT_NEAR(camera.project(middle).y(), old.y() - 10, 1.5);
}

TEST_F(ksOrbitCameraTest, StaysUprightHoweverFarItGoes)
{
    camera.orbit(1000, 1000);
    EXPECT_GT(camera.toScene().mapVector(QVector3D(0, 1, 0)).length(), 0.9F);
    EXPECT_GT(camera.eye().y(), box.high.y());
    camera.orbit(0, -1000);
    EXPECT_LT(camera.eye().y(), box.low.y());
    const ksOrbitCamera same = camera;
    EXPECT_TRUE(camera == same);
    camera.orbit(1, 0);
    EXPECT_FALSE(camera == same);
}

TEST(ksRayTest, MeetsTrianglesBoxesAndPlanes)
{
    const ksRay ray{{0.25F, 0.25F, 5}, {0, 0, -2}};
    EXPECT_FLOAT_EQ(ray.meetTriangle({0, 0, 1}, {1, 0, 1}, {0, 1, 1}).value(), 2);
    EXPECT_FLOAT_EQ(ray.meetTriangle({0, 0, 1}, {0, 1, 1}, {1, 0, 1}).value(), 2) << "from behind as well";
    EXPECT_FALSE(ray.meetTriangle({0, 0, 6}, {1, 0, 6}, {0, 1, 6})) << "behind the ray";
    EXPECT_FALSE(ray.meetTriangle({1, 1, 1}, {2, 1, 1}, {1, 2, 1}));
    EXPECT_TRUE(ray.meets({{0, 0, 0}, {1, 1, 1}}));
    EXPECT_FALSE(ray.meets({{0.5F, 0, 0}, {1, 1, 1}}));
    EXPECT_FALSE(ray.meets({{0, 0, 6}, {1, 1, 7}}));
    EXPECT_FALSE(ray.meets(ksBounds()));
    EXPECT_EQ(ray.meetPlane({9, 9, 1}, {0, 0, 1}).value(), QVector3D(0.25F, 0.25F, 1));
    EXPECT_FALSE(ray.meetPlane({9, 9, 1}, {1, 0, 0}));
    EXPECT_FLOAT_EQ(ray.closestOn({-3, 0, 0}, {1, 0, 0}).value(), 3.25F);
    EXPECT_FALSE(ray.closestOn({0, 0, 0}, {0, 0, 1}));
}
