#pragma once
// The geometry buffers of a run: the mesh of one surface group and the trim
// curves of one exact surface. They are reused for every mesh of the run and
// keep their storage, so their capacity grows over the run.
#include <cstdint>
#include <vector>

struct ScratchArrays {
    std::vector<float> meshVertices;           // x, y, z of each vertex
    std::vector<float> meshNormals;            // x, y, z of each normal
    std::vector<float> meshUvs;                // u, v of each vertex
    std::vector<std::int32_t> meshTriangles;   // three vertex indices a triangle
    std::vector<std::int32_t> trimEdgeCounts;  // curves of each contour
    std::vector<std::int32_t> trimInside;      // 0 for a hole, else 1
    std::vector<std::int32_t> edgeOrders;      // degree plus 1 of each curve
    std::vector<std::int32_t> edgeKnotCounts;
    std::vector<double> edgeMins;              // smallest knot of each curve
    std::vector<double> edgeMaxs;              // largest knot of each curve
    std::vector<double> edgeKnots;             // all curves' knots, one after the other
    std::vector<double> edgeUvws;              // u, v and weight of each control point

    // Empties the four mesh buffers, keeping their storage.
    void clearMesh() {
        meshVertices.clear();
        meshNormals.clear();
        meshUvs.clear();
        meshTriangles.clear();
    }

    // A mesh worth writing: it has vertices and triangles.
    bool meshIsWritable() const { return !meshVertices.empty() && !meshTriangles.empty(); }

    // Empties the eight trim buffers, keeping their storage.
    void clearTrim() {
        trimEdgeCounts.clear();
        trimInside.clear();
        edgeOrders.clear();
        edgeKnotCounts.clear();
        edgeMins.clear();
        edgeMaxs.clear();
        edgeKnots.clear();
        edgeUvws.clear();
    }

    // Sets the length of every buffer to zero and keeps their storage.
    void clear() {
        clearMesh();
        clearTrim();
    }
};
