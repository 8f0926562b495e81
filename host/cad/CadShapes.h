#pragma once
// The exact shapes behind a CadModel, by the indexes that its faces and edges
// carry, and the meshes already made of its faces.
#include <TopoDS_Edge.hxx>
#include <TopoDS_Face.hxx>

#include <map>
#include <utility>
#include <vector>

#include "host/cad/FaceTessellation.h"

namespace host::cad {

class CadShapes {
public:
    int addFace(const TopoDS_Face& face) {
        faces_.push_back(face);
        partOfFace_.emplace_back(static_cast<int>(faces_.size()) - 1, static_cast<int>(faces_.size()));
        return static_cast<int>(faces_.size()) - 1;
    }
    int faceCount() const { return static_cast<int>(faces_.size()); }
    // The faces added since `firstFace` make one part: they are meshed together.
    void closePart(int firstFace) {
        for (int i = firstFace; i < faceCount(); ++i) partOfFace_[i] = {firstFace, faceCount()};
    }
    // The faces of the part that holds face `index`: [first, last).
    std::pair<int, int> partOf(int index) const { return partOfFace_.at(index); }
    int addEdge(const TopoDS_Edge& edge) {
        edges_.push_back(edge);
        return static_cast<int>(edges_.size()) - 1;
    }

    bool hasFace(int index) const { return index >= 0 && index < static_cast<int>(faces_.size()); }
    const TopoDS_Face& face(int index) const { return faces_.at(index); }
    const TopoDS_Edge& edge(int index) const { return edges_.at(index); }

    // A chord height finds the mesh made at one equal to it up to rounding,
    // as when the same share of a part's size is worked out in two ways.
    const TessellationResult* findTessellation(int faceIndex, double chordHeight) const {
        auto found = tessellations_.lower_bound({faceIndex, chordHeight * (1.0 - sameChordHeight)});
        if (found == tessellations_.end() || found->first.first != faceIndex ||
            !(found->first.second <= chordHeight * (1.0 + sameChordHeight)))
            return nullptr;
        return &found->second;
    }
    const TessellationResult& keepTessellation(int faceIndex, double chordHeight, TessellationResult result) {
        return tessellations_.insert_or_assign({faceIndex, chordHeight}, std::move(result)).first->second;
    }

    // A job that meshes the whole model (an export of it) says so before it
    // starts: the first mesh asked for is then made for every part at once.
    void meshWholeModelAhead() { meshAhead_ = true; }
    bool takeMeshAhead() { return std::exchange(meshAhead_, false); }

private:
    static constexpr double sameChordHeight = 1e-9;

    std::vector<TopoDS_Face> faces_;
    std::vector<std::pair<int, int>> partOfFace_;
    std::vector<TopoDS_Edge> edges_;
    std::map<std::pair<int, double>, TessellationResult> tessellations_;
    bool meshAhead_ = false;
};

}  // namespace host::cad
