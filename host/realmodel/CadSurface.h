#pragma once
// A face of a loaded CAD model as a surface of the host session: the host's
// tessellation requests go to the kernel's mesher at the chord height asked.
#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>

#include "host/cad/CadModel.h"
#include "host/geometry/SurfaceGeometry.h"

namespace host::realmodel {

// Counts the tessellation requests of a run against the number expected,
// tells an observer after each one, and adds up the time spent meshing.
class TessellationProgress {
public:
    using Observer = std::function<void(std::size_t done, std::size_t total)>;

    void setTotal(std::size_t total) { total_ = total; }
    void setObserver(Observer observer) { observer_ = std::move(observer); }

    void count(int partIndex, double chordHeight, std::chrono::duration<double> meshing) {
        if (done_ == 0) {
            firstPartIndex_ = partIndex;
            firstChordHeight_ = chordHeight;
        }
        ++done_;
        meshing_ += meshing;
        if (observer_) observer_(done(), total_);
    }
    std::chrono::duration<double> meshingTime() const { return meshing_; }
    // The chord height of the run's first request: the one that the quality
    // setting gives, before any retry.
    double firstChordHeight() const { return firstChordHeight_; }
    int firstPartIndex() const { return firstPartIndex_; }
    // Requests beyond the total (the retries of refused surfaces) don't count
    // past it.
    std::size_t done() const { return done_ < total_ ? done_ : total_; }
    std::size_t total() const { return total_; }

private:
    std::size_t done_ = 0;
    std::size_t total_ = 0;
    std::chrono::duration<double> meshing_{};
    double firstChordHeight_ = 0.0;
    int firstPartIndex_ = -1;
    Observer observer_;
};

class CadSurface : public SurfaceGeometry {
public:
    CadSurface(std::shared_ptr<const cad::CadModel> model, int partIndex, int faceIndex,
               std::shared_ptr<TessellationProgress> progress);

    // A chord height that the mesher refuses, or a face it can't mesh, fails,
    // so that the caller may try again at another chord height.
    TessellationOutcome tessellate(double chordHeight, SurfaceMesh& mesh) const override;
    void extend(Point3& low, Point3& high) const override;

private:
    const cad::CadFace& face() const;

    std::shared_ptr<const cad::CadModel> model_;
    int partIndex_;
    int faceIndex_;
    std::shared_ptr<TessellationProgress> progress_;
};

}  // namespace host::realmodel
