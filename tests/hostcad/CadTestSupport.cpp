#include "CadTestSupport.h"

#include <gtest/gtest.h>

#include <BRepPrimAPI_MakeBox.hxx>
#include <iconv.h>

#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>

#include "host/cad/CadShapes.h"
#include "host/cad/PartBuilder.h"
#include "host/cad/XdeDocumentBuilder.h"

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

namespace {

// `text` in another code page, through the C library's converter.
std::string encoded(const std::string& text, const char* codePage) {
    iconv_t converter = iconv_open(codePage, "UTF-8");
    if (converter == reinterpret_cast<iconv_t>(-1)) throw std::runtime_error(std::string("no converter to ") + codePage);
    std::string input = text;
    std::string output(text.size() * 4, '\0');
    char* in = input.data();
    char* out = output.data();
    size_t inLeft = input.size();
    size_t outLeft = output.size();
    const size_t converted = iconv(converter, &in, &inLeft, &out, &outLeft);
    iconv_close(converter);
    if (converted == static_cast<size_t>(-1)) throw std::runtime_error("'" + text + "' doesn't fit " + codePage);
    output.resize(output.size() - outLeft);
    return output;
}

}  // namespace

// The kernel writes names as the file's own escapes; placeholders written
// first are replaced by the raw bytes afterwards, as a legacy CAD system writes them.
void writeStepNamingParts(const std::string& path, const std::vector<std::string>& names, const char* codePage) {
    XdeDocumentBuilder builder;
    const TDF_Label top = builder.addAssembly("TOP");
    for (size_t i = 0; i < names.size(); ++i) {
        const TDF_Label part = builder.addPart("PLACEHOLDER" + std::to_string(i), BRepPrimAPI_MakeBox(1, 1, 1).Shape());
        builder.addComponent(top, part, gp_Trsf());
    }
    builder.writeStep(path, "mm");
    std::string text;
    {
        std::ifstream written(path, std::ios::binary);
        text.assign(std::istreambuf_iterator<char>(written), std::istreambuf_iterator<char>());
    }
    for (size_t i = names.size(); i-- > 0;) {
        const std::string placeholder = "PLACEHOLDER" + std::to_string(i);
        const std::string bytes = encoded(names[i], codePage);
        for (size_t at = text.find(placeholder); at != std::string::npos; at = text.find(placeholder, at)) {
            text.replace(at, placeholder.size(), bytes);
        }
    }
    std::ofstream(path, std::ios::binary) << text;
}

}  // namespace host::cad::testing
