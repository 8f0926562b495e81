#include "CadTestSupport.h"

#include <gtest/gtest.h>

#include <random>
#include <stdexcept>

#include "host/cad/CadShapes.h"
#include "host/cad/PartBuilder.h"

namespace host::cad::testing {

ScratchFolder::ScratchFolder() {
    std::random_device random;
    const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
    const std::string name = test ? test->name() : "scratch";
    path_ = std::filesystem::temp_directory_path() / ("vantrel-hostcad-" + name + "-" + std::to_string(random()));
    std::filesystem::create_directories(path_);
}

ScratchFolder::~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

CadModel modelOfShape(const TopoDS_Shape& shape) {
    CadModel model;
    model.unitName = "mm";
    model.shapes = std::make_shared<CadShapes>();
    model.parts.push_back(buildPart("SHAPE", shape, std::nullopt, {}, *model.shapes));
    model.top = NodeRef{NodeKind::part, 0};
    return model;
}

const CadPart& partNamed(const CadModel& model, const std::string& name) {
    for (const CadPart& part : model.parts) {
        if (part.name == name) return part;
    }
    throw std::out_of_range("no part named " + name);
}

const CadAssembly& assemblyNamed(const CadModel& model, const std::string& name) {
    for (const CadAssembly& assembly : model.assemblies) {
        if (assembly.name == name) return assembly;
    }
    throw std::out_of_range("no assembly named " + name);
}

int partOccurrences(const CadModel& model, NodeRef node) {
    if (node.kind == NodeKind::part) return 1;
    int count = 0;
    for (const CadComponent& component : model.assemblies.at(node.index).components) {
        count += partOccurrences(model, component.target);
    }
    return count;
}

std::array<double, 3> vertexOf(const FaceTessellation& mesh, int vertex) {
    return {mesh.vertices[3 * vertex], mesh.vertices[3 * vertex + 1], mesh.vertices[3 * vertex + 2]};
}

std::array<double, 3> normalOf(const FaceTessellation& mesh, int vertex) {
    return {mesh.normals[3 * vertex], mesh.normals[3 * vertex + 1], mesh.normals[3 * vertex + 2]};
}

std::array<double, 3> windingNormal(const FaceTessellation& mesh, int triangle) {
    const auto a = vertexOf(mesh, mesh.triangles[3 * triangle]);
    const auto b = vertexOf(mesh, mesh.triangles[3 * triangle + 1]);
    const auto c = vertexOf(mesh, mesh.triangles[3 * triangle + 2]);
    const double u[3] = {b[0] - a[0], b[1] - a[1], b[2] - a[2]};
    const double v[3] = {c[0] - a[0], c[1] - a[1], c[2] - a[2]};
    return {u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0]};
}

std::array<double, 3> centroidOf(const FaceTessellation& mesh, int triangle) {
    std::array<double, 3> sum{};
    for (int k = 0; k < 3; ++k) {
        const auto corner = vertexOf(mesh, mesh.triangles[3 * triangle + k]);
        for (int i = 0; i < 3; ++i) sum[i] += corner[i] / 3.0;
    }
    return sum;
}

}  // namespace host::cad::testing
