#pragma once
// What the CAD model tests share: a scratch folder, models made straight from
// a shape, and look-ups by name.
#include <TopoDS_Shape.hxx>

#include <array>
#include <filesystem>
#include <string>
#include <vector>

#include "host/cad/CadModel.h"
#include "host/cad/FaceTessellation.h"

namespace host::cad::testing {

// A folder of its own for one test, removed with everything in it afterwards.
class ScratchFolder {
public:
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    std::string file(const std::string& name) const { return (path_ / name).string(); }
    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

// A model whose top is one part made of `shape`.
CadModel modelOfShape(const TopoDS_Shape& shape);

// A STEP assembly of boxes named `names`, the names written as raw bytes of
// `codePage` (as the C library's converter spells it: "CP1251", "UTF-8", ...).
void writeStepNamingParts(const std::string& path, const std::vector<std::string>& names, const char* codePage);

const CadPart& partNamed(const CadModel& model, const std::string& name);
const CadAssembly& assemblyNamed(const CadModel& model, const std::string& name);
int partOccurrences(const CadModel& model, NodeRef node);

std::array<double, 3> vertexOf(const FaceTessellation& mesh, int vertex);
std::array<double, 3> normalOf(const FaceTessellation& mesh, int vertex);
// The normal that the triangle's corners give in their counter-clockwise order.
std::array<double, 3> windingNormal(const FaceTessellation& mesh, int triangle);
std::array<double, 3> centroidOf(const FaceTessellation& mesh, int triangle);

}  // namespace host::cad::testing
