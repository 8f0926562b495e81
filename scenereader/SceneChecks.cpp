#include "scenereader/SceneChecks.h"

#include <cmath>
#include <optional>
#include <set>
#include <sstream>

#include "scenereader/NurbsChecks.h"
#include "scenereader/SceneAnimations.h"

namespace scenereader {

namespace {

// An array attribute seen as numbers, `width` to an element: a binary block
// of the expected kind, or a text array whose elements hold `width` numbers.
class NumberArray {
public:
    // Nothing if the value has another shape.
    static std::optional<NumberArray> of(const Value& value, char binaryKind, size_t width) {
        NumberArray array;
        array.width_ = width;
        if (value.kind == ValueKind::Binary) {
            if (value.binary.kind != binaryKind || value.binary.count % width != 0) return std::nullopt;
            array.binary_ = &value.binary;
            return array;
        }
        if (value.kind != ValueKind::TextArray) return std::nullopt;
        for (const Value& element : value.items) {
            if (width == 1 && element.kind == ValueKind::Number) {
                array.text_.push_back(element.number);
                continue;
            }
            if (element.kind != ValueKind::Tuple || element.items.size() != width) return std::nullopt;
            for (const Value& scalar : element.items) {
                if (scalar.kind != ValueKind::Number) return std::nullopt;
                array.text_.push_back(scalar.number);
            }
        }
        return array;
    }

    size_t scalars() const { return binary_ ? binary_->count : text_.size(); }
    size_t elements() const { return scalars() / width_; }
    double at(size_t index) const {
        if (!binary_) return text_[index];
        switch (binary_->kind) {
            case 'i': return binary_->ints[index];
            case 'r': return binary_->doubles[index];
            default: return binary_->floats[index];
        }
    }

private:
    const BinaryArray* binary_ = nullptr;
    std::vector<double> text_;
    size_t width_ = 1;
};

struct ArrayRule {
    const char* name;
    char binaryKind;
    size_t width;
    const char* shape;
};

constexpr ArrayRule verticesRule{"vertices", 'c', 3, "float triples"};
constexpr ArrayRule normalsRule{"normals", 'c', 3, "float triples"};
constexpr ArrayRule uvRule{"uv_tex", 'f', 1, "floats"};
constexpr ArrayRule indicesRule{"triangles", 'i', 1, "integers"};

std::string formatNumber(double value) {
    std::ostringstream text;
    text.precision(17);
    text << value;
    return text.str();
}

std::string quoted(const char* name) { return "\"" + std::string(name) + "\""; }

// One "triangles" geometry and where it stands, for the messages.
struct GeometryCheck {
    const Block& geometry;
    std::string where;
    std::vector<std::string>& problems;

    void report(const std::string& problem) const { problems.push_back(where + ": " + problem); }

    std::optional<NumberArray> array(const ArrayRule& rule, bool required) const {
        const Statement* statement = geometry.statement(rule.name);
        if (!statement) {
            if (required) report(quoted(rule.name) + " is missing");
            return std::nullopt;
        }
        std::optional<NumberArray> array;
        if (statement->values.size() == 1) array = NumberArray::of(statement->values.front(), rule.binaryKind, rule.width);
        if (!array) {
            report(quoted(rule.name) + " at line " + std::to_string(statement->line) + " is not an array of " + rule.shape);
        } else {
            requireFinite(rule, *array);
        }
        return array;
    }

    void requireFinite(const ArrayRule& rule, const NumberArray& array) const {
        for (size_t i = 0; i < array.scalars(); ++i) {
            if (std::isfinite(array.at(i))) continue;
            report(quoted(rule.name) + " value " + std::to_string(i) + " is " + formatNumber(array.at(i)) +
                   ", not a finite number");
            return;
        }
    }

    void requireIndices(const NumberArray& indices, size_t vertexCount) const {
        if (indices.scalars() % 3 != 0) {
            report("\"triangles\" holds " + std::to_string(indices.scalars()) + " indices, not a multiple of 3");
        }
        size_t outside = 0;
        for (size_t i = 0; i < indices.scalars(); ++i) {
            double index = indices.at(i);
            if (index >= 0 && index < static_cast<double>(vertexCount) && index == std::floor(index)) continue;
            if (outside++ > 0) continue;
            report("\"triangles\" index " + formatNumber(index) + " at position " + std::to_string(i) +
                   " is not a vertex: the vertex count is " + std::to_string(vertexCount));
        }
        if (outside > 1) report("\"triangles\" holds " + std::to_string(outside) + " indices that are not vertices");
    }

    void run() const {
        std::optional<NumberArray> vertices = array(verticesRule, true);
        std::optional<NumberArray> normals = array(normalsRule, false);
        std::optional<NumberArray> uvs = array(uvRule, false);
        std::optional<NumberArray> indices = array(indicesRule, true);
        if (!vertices) return;
        size_t vertexCount = vertices->elements();
        if (normals && normals->elements() != vertexCount) {
            report("\"normals\" holds " + std::to_string(normals->elements()) + " normals for " +
                   std::to_string(vertexCount) + " vertices");
        }
        if (uvs && uvs->scalars() != 2 * vertexCount) {
            report("\"uv_tex\" holds " + std::to_string(uvs->scalars()) + " floats, not 2 for each of " +
                   std::to_string(vertexCount) + " vertices");
        }
        if (indices) requireIndices(*indices, vertexCount);
    }
};

bool isGeometry(const Block& block, std::string_view type) { return block.kind == "geometry" && block.name() == type; }

void checkGeometries(const Block& block, const std::string& path, std::vector<std::string>& problems,
                     NurbsFindings& exact) {
    for (const auto& item : block.items) {
        const auto* inner = std::get_if<Block>(&item);
        if (!inner) continue;
        std::string where = (path.empty() ? "" : path + " / ") + describeBlock(*inner);
        if (isGeometry(*inner, "triangles")) {
            GeometryCheck{*inner, where + " at line " + std::to_string(inner->line), problems}.run();
        }
        if (isGeometry(*inner, "nurbs")) checkNurbsGeometry(*inner, where + " at line " + std::to_string(inner->line), exact);
        if (inner->kind == "group") checkMeshOnSurfaces(*inner, where + " at line " + std::to_string(inner->line), exact);
        checkGeometries(*inner, where, problems, exact);
    }
}

void findNonFiniteNumbers(const Block& block, std::vector<std::string>& problems);

void findNonFiniteNumbers(const Value& value, const Statement& statement, std::vector<std::string>& problems) {
    if (value.kind == ValueKind::Number && !std::isfinite(value.number)) {
        problems.push_back("line " + std::to_string(statement.line) + ": \"" + statement.name + "\" holds the number \"" +
                           value.text + "\"");
    }
    for (const Value& item : value.items) findNonFiniteNumbers(item, statement, problems);
    if (value.shader) findNonFiniteNumbers(*value.shader, problems);
}

void findNonFiniteNumbers(const Block& block, std::vector<std::string>& problems) {
    for (const auto& item : block.items) {
        if (const auto* inner = std::get_if<Block>(&item)) {
            findNonFiniteNumbers(*inner, problems);
            continue;
        }
        const auto& statement = std::get<Statement>(item);
        for (const Value& value : statement.values) findNonFiniteNumbers(value, statement, problems);
    }
}

size_t triangleCount(const Block& geometry) {
    const Statement* indices = geometry.statement("triangles");
    if (!indices || indices->values.size() != 1) return 0;
    std::optional<NumberArray> array = NumberArray::of(indices->values.front(), indicesRule.binaryKind, 1);
    return array ? array->scalars() / 3 : 0;
}

void countBlocks(const Block& block, SceneSummary& summary, std::set<std::string>& materialNames) {
    for (const auto& item : block.items) {
        const auto* inner = std::get_if<Block>(&item);
        if (!inner) continue;
        summary.groups += inner->kind == "group";
        summary.objects += inner->kind == "object";
        if (inner->kind == "material") {
            ++summary.materials;
            materialNames.insert(inner->name());
        }
        summary.cameras += inner->kind == "camera";
        summary.nurbsObjects += isGeometry(*inner, "nurbs");
        summary.animations += inner->kind == "animation";
        if (isGeometry(*inner, "triangles")) {
            ++summary.triangleMeshes;
            summary.triangles += triangleCount(*inner);
        }
        countBlocks(*inner, summary, materialNames);
    }
}

void addTree(const Block& block, size_t depth, std::string& text) {
    for (const auto& item : block.items) {
        const auto* inner = std::get_if<Block>(&item);
        if (!inner) continue;
        std::string line;
        if (isGeometry(*inner, "triangles")) {
            const size_t triangles = triangleCount(*inner);
            line = "mesh: " + std::to_string(triangles) + (triangles == 1 ? " triangle" : " triangles");
        } else if (isGeometry(*inner, "nurbs")) {
            line = "NURBS";
        } else if (inner->kind == "group" || inner->kind == "object" || inner->kind == "material" ||
                   inner->kind == "camera") {
            line = inner->kind + " \"" + inner->name() + "\"";
        } else {
            continue;
        }
        text += std::string(2 * depth, ' ') + line + "\n";
        if (inner->kind == "group" || inner->kind == "object") addTree(*inner, depth + 1, text);
    }
}

std::string counted(size_t count, const char* one, const char* many) {
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

}  // namespace

std::vector<std::string> checkScene(const Document& document) {
    std::vector<std::string> problems;
    NurbsFindings exact;
    checkGeometries(document.root, "", problems, exact);
    problems.insert(problems.end(), exact.problems.begin(), exact.problems.end());
    std::vector<std::string> animationProblems = checkAnimations(document);
    problems.insert(problems.end(), animationProblems.begin(), animationProblems.end());
    findNonFiniteNumbers(document.root, problems);
    return problems;
}

std::vector<std::string> sceneWarnings(const Document& document) {
    std::vector<std::string> problems;
    NurbsFindings exact;
    checkGeometries(document.root, "", problems, exact);
    return exact.warnings;
}

SceneSummary summarize(const Document& document) {
    SceneSummary summary;
    std::set<std::string> materialNames;
    countBlocks(document.root, summary, materialNames);
    summary.distinctMaterials = materialNames.size();
    return summary;
}

std::string describeTree(const Document& document) {
    std::string text;
    addTree(document.root, 0, text);
    return text;
}

std::string describeSummary(const SceneSummary& summary) {
    return counted(summary.groups, "group", "groups") + ", " + counted(summary.objects, "object", "objects") + ", " +
           counted(summary.triangleMeshes, "triangle mesh", "triangle meshes") + " with " +
           counted(summary.triangles, "triangle", "triangles") + ", " +
           counted(summary.materials, "material", "materials") +
           (summary.materials > 0 ? " (" + std::to_string(summary.distinctMaterials) + " distinct)" : std::string()) +
           ", " +
           counted(summary.cameras, "camera", "cameras") + ", " +
           counted(summary.nurbsObjects, "NURBS object", "NURBS objects") +
           (summary.animations ? ", " + counted(summary.animations, "animation", "animations") : "");
}

}  // namespace scenereader
