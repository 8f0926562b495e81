#include "scenetools/GltfCameras.h"

#include <algorithm>
#include <cmath>
#include <gp_Mat.hxx>
#include <gp_Quaternion.hxx>
#include <gp_Vec.hxx>

#include "scenetools/GltfJson.h"
#include "scenetools/UpAxis.h"

namespace scenetools {

namespace {

constexpr double pi = 3.14159265358979323846;

gp_Vec turned(const Matrix& m, const std::array<double, 3>& v) {
    return gp_Vec(v[0] * m[0] + v[1] * m[4] + v[2] * m[8], v[0] * m[1] + v[1] * m[5] + v[2] * m[9],
                  v[0] * m[2] + v[1] * m[6] + v[2] * m[10]);
}

gp_Vec unitOr(gp_Vec v, const gp_Vec& fallback) { return v.SquareMagnitude() > 1e-24 ? v.Normalized() : fallback; }

double halfAngle(const Camera& camera) {
    const double fov = camera.fieldOfView > 1 && camera.fieldOfView < 179 ? camera.fieldOfView : 55;
    return fov * pi / 360;
}

rapidjson::Value cameraJson(const Camera& camera, const CameraPlacement& place,
                            rapidjson::Document::AllocatorType& allocator) {
    const double znear = std::max(place.distance - 1.5 * place.radius, 0.01 * place.distance);
    const double zfar = place.distance + 1.5 * place.radius;
    rapidjson::Value projection(rapidjson::kObjectType);
    rapidjson::Value result(rapidjson::kObjectType);
    result.AddMember("name", rapidjson::Value(camera.name.c_str(), allocator), allocator);
    if (camera.orthographic) {
        projection.AddMember("xmag", place.radius, allocator);
        projection.AddMember("ymag", place.radius, allocator);
        projection.AddMember("znear", znear, allocator);
        projection.AddMember("zfar", zfar, allocator);
        result.AddMember("type", "orthographic", allocator);
        result.AddMember("orthographic", projection, allocator);
    } else {
        projection.AddMember("yfov", 2 * halfAngle(camera), allocator);
        projection.AddMember("znear", znear, allocator);
        projection.AddMember("zfar", zfar, allocator);
        result.AddMember("type", "perspective", allocator);
        result.AddMember("perspective", projection, allocator);
    }
    return result;
}

}  // namespace

CameraPlacement placeCamera(const Scene& scene, const Camera& camera, const Bounds& viewerBounds) {
    const Matrix toViewer = multiply(camera.world, sceneToViewer(scene));
    const gp_Vec direction = unitOr(turned(toViewer, camera.direction), gp_Vec(0, 0, -1));
    gp_Vec up = turned(toViewer, camera.up);
    up = unitOr(up - direction * up.Dot(direction), std::abs(direction.Z()) < 0.9 ? gp_Vec(0, 0, 1) : gp_Vec(0, 1, 0));
    if (std::abs(up.Dot(direction)) > 1e-6) up = unitOr(up - direction * up.Dot(direction), gp_Vec(1, 0, 0));
    const gp_Vec back = -direction;
    const gp_Vec right = up.Crossed(back);

    CameraPlacement place;
    gp_Vec centre(0, 0, 0);
    if (!viewerBounds.empty) {
        gp_Vec size(0, 0, 0);
        for (int i = 0; i < 3; ++i) {
            centre.SetCoord(i + 1, (viewerBounds.min[i] + viewerBounds.max[i]) / 2);
            size.SetCoord(i + 1, viewerBounds.max[i] - viewerBounds.min[i]);
        }
        place.radius = std::max(size.Magnitude() / 2, 1e-3);
    }
    place.distance = camera.orthographic ? 2 * place.radius : place.radius / std::sin(halfAngle(camera));
    const gp_Vec eye = centre + back * place.distance;
    place.eye = {eye.X(), eye.Y(), eye.Z()};
    const gp_Quaternion rotation(gp_Mat(right.XYZ(), up.XYZ(), back.XYZ()));
    place.rotation = {rotation.X(), rotation.Y(), rotation.Z(), rotation.W()};
    return place;
}

void addCameras(rapidjson::Document& document, const Scene& scene) {
    if (scene.cameras.empty()) return;
    auto& allocator = document.GetAllocator();
    const Bounds bounds = meshBounds(scene, sceneToViewer(scene));
    // Members first: adding one to the document moves the others.
    for (const char* name : {"cameras", "nodes", "scenes"}) member(document, name, rapidjson::kArrayType, allocator);
    if (!document.HasMember("scene")) document.AddMember("scene", 0, allocator);
    rapidjson::Value& scenes = document["scenes"];
    if (scenes.Empty()) scenes.PushBack(rapidjson::Value(rapidjson::kObjectType), allocator);
    rapidjson::Value& cameras = document["cameras"];
    rapidjson::Value& nodes = document["nodes"];
    rapidjson::Value& sceneNodes =
        member(scenes[document["scene"].GetUint()], "nodes", rapidjson::kArrayType, allocator);
    for (const Camera& camera : scene.cameras) {
        const CameraPlacement place = placeCamera(scene, camera, bounds);
        rapidjson::Value node(rapidjson::kObjectType);
        node.AddMember("name", rapidjson::Value(camera.name.c_str(), allocator), allocator);
        node.AddMember("camera", cameras.Size(), allocator);
        node.AddMember(
            "rotation",
            numberArray({place.rotation[0], place.rotation[1], place.rotation[2], place.rotation[3]}, allocator),
            allocator);
        node.AddMember("translation", numberArray({place.eye[0], place.eye[1], place.eye[2]}, allocator), allocator);
        cameras.PushBack(cameraJson(camera, place, allocator), allocator);
        sceneNodes.PushBack(nodes.Size(), allocator);
        nodes.PushBack(node, allocator);
    }
}

}  // namespace scenetools
