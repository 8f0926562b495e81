#include "scenereader/NurbsChecks.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <numeric>
#include <limits>
#include <optional>

namespace scenereader {

namespace {

std::optional<std::vector<double>> doubles(const Block& geometry, const char* name) {
    const Statement* statement = geometry.statement(name);
    if (!statement || statement->values.size() != 1) return std::nullopt;
    const Value& value = statement->values.front();
    if (value.kind == ValueKind::Binary && value.binary.kind == 'r') return value.binary.doubles;
    if (value.kind == ValueKind::Number) return std::vector<double>{value.number};
    if (value.kind != ValueKind::TextArray) return std::nullopt;
    std::vector<double> numbers;
    for (const Value& item : value.items) {
        if (item.kind != ValueKind::Number) return std::nullopt;
        numbers.push_back(item.number);
    }
    return numbers;
}

std::optional<std::vector<std::int32_t>> ints(const Block& geometry, const char* name) {
    const Statement* statement = geometry.statement(name);
    if (!statement || statement->values.size() != 1) return std::nullopt;
    const Value& value = statement->values.front();
    if (value.kind == ValueKind::Binary && value.binary.kind == 'i') return value.binary.ints;
    if (value.kind == ValueKind::Number) return std::vector<std::int32_t>{static_cast<std::int32_t>(value.number)};
    return std::nullopt;
}

bool nonDecreasing(const double* knots, size_t count) {
    for (size_t i = 1; i < count; ++i) {
        if (knots[i] < knots[i - 1]) return false;
    }
    return true;
}

struct Domain {
    double umin = 0, umax = 0, vmin = 0, vmax = 0;
    double size() const { return std::max({umax - umin, vmax - vmin, 1e-12}); }
};

class NurbsCheck {
public:
    NurbsCheck(const Block& geometry, const std::string& where, NurbsFindings& findings)
        : geometry_(geometry), where_(where), findings_(findings) {}

    void run() {
        std::optional<Domain> domain = checkSurface();
        if (geometry_.statement("trim_nedges")) checkTrims(domain);
    }

private:
    void problem(const std::string& text) { findings_.problems.push_back(where_ + ": " + text); }
    void warning(const std::string& text) { findings_.warnings.push_back(where_ + ": " + text); }

    // The control count of one direction, or none after a problem.
    std::optional<size_t> checkDirection(const char* orderName, const char* knotName) {
        auto order = ints(geometry_, orderName);
        auto knots = doubles(geometry_, knotName);
        if (!order || order->size() != 1 || !knots) {
            problem(std::string("\"") + orderName + "\" or \"" + knotName + "\" is missing or malformed");
            return std::nullopt;
        }
        const long count = static_cast<long>(knots->size()) - order->front();
        if (order->front() < 1 || count < 1) {
            problem(std::string("\"") + knotName + "\" holds " + std::to_string(knots->size()) + " knots for order " +
                    std::to_string(order->front()));
            return std::nullopt;
        }
        if (!nonDecreasing(knots->data(), knots->size())) problem(std::string("\"") + knotName + "\" decreases");
        return static_cast<size_t>(count);
    }

    std::optional<Domain> checkSurface() {
        if (!geometry_.statement("Pw")) return std::nullopt;  // an untrimmed shape-less object
        auto countU = checkDirection("uorder", "uknot");
        auto countV = checkDirection("vorder", "vknot");
        auto pw = doubles(geometry_, "Pw");
        if (!pw) {
            problem("\"Pw\" is not an array of doubles");
            return std::nullopt;
        }
        if (countU && countV && pw->size() != 4 * *countU * *countV) {
            problem("\"Pw\" holds " + std::to_string(pw->size()) + " numbers, not 4 for each of " +
                    std::to_string(*countU) + " x " + std::to_string(*countV) + " control points");
        }
        for (size_t i = 3; i < pw->size(); i += 4) {
            if ((*pw)[i] > 0) continue;
            problem("control point " + std::to_string(i / 4) + " has the weight " + std::to_string((*pw)[i]));
            break;
        }
        Domain domain;
        const char* names[] = {"umin", "umax", "vmin", "vmax"};
        double* limits[] = {&domain.umin, &domain.umax, &domain.vmin, &domain.vmax};
        for (size_t i = 0; i < 4; ++i) {
            auto value = doubles(geometry_, names[i]);
            if (!value || value->size() != 1) return std::nullopt;
            *limits[i] = value->front();
        }
        return domain;
    }

    struct TrimArrays {
        std::vector<std::int32_t> edgeCounts, inside, orders, knotCounts;
        std::vector<double> mins, maxs, knots, uvw;
    };

    std::optional<TrimArrays> readTrims() {
        auto edgeCounts = ints(geometry_, "trim_nedges");
        auto inside = ints(geometry_, "trim_inside");
        auto orders = ints(geometry_, "edge_order");
        auto knotCounts = ints(geometry_, "edge_nknots");
        auto mins = doubles(geometry_, "edge_min");
        auto maxs = doubles(geometry_, "edge_max");
        auto knots = doubles(geometry_, "edge_knot");
        auto uvw = doubles(geometry_, "edge_uvw");
        if (!edgeCounts || !inside || !orders || !knotCounts || !mins || !maxs || !knots || !uvw) {
            problem("a trim attribute is missing or malformed");
            return std::nullopt;
        }
        return TrimArrays{*edgeCounts, *inside, *orders, *knotCounts, *mins, *maxs, *knots, *uvw};
    }

    bool countsAgree(const TrimArrays& t) {
        const long curves = std::accumulate(t.edgeCounts.begin(), t.edgeCounts.end(), 0L);
        const long knots = std::accumulate(t.knotCounts.begin(), t.knotCounts.end(), 0L);
        long points = 0;
        for (size_t c = 0; c < t.orders.size() && c < t.knotCounts.size(); ++c) {
            if (t.orders[c] < 1 || t.knotCounts[c] <= t.orders[c]) {
                problem("trim curve " + std::to_string(c) + " has " + std::to_string(t.knotCounts[c]) +
                        " knots for order " + std::to_string(t.orders[c]));
                return false;
            }
            points += t.knotCounts[c] - t.orders[c];
        }
        if (t.inside.size() != t.edgeCounts.size() || static_cast<long>(t.orders.size()) != curves ||
            t.knotCounts.size() != t.orders.size() || t.mins.size() != t.orders.size() ||
            t.maxs.size() != t.orders.size() || static_cast<long>(t.knots.size()) != knots ||
            static_cast<long>(t.uvw.size()) != 3 * points) {
            problem("the trim arrays disagree: " + std::to_string(t.edgeCounts.size()) + " contours, " +
                    std::to_string(curves) + " curves counted, " + std::to_string(t.orders.size()) + " orders, " +
                    std::to_string(t.knots.size()) + " knots, " + std::to_string(t.uvw.size()) + " point numbers");
            return false;
        }
        return true;
    }

    struct Curve {
        size_t firstPoint, pointCount;
    };

    std::array<double, 2> point(const TrimArrays& t, size_t index) const { return {t.uvw[3 * index], t.uvw[3 * index + 1]}; }

    bool meets(const std::array<double, 2>& a, const std::array<double, 2>& b, double tolerance) const {
        return std::fabs(a[0] - b[0]) <= tolerance && std::fabs(a[1] - b[1]) <= tolerance;
    }

    // Each curve's end meets the next one's start, cyclically, in the order
    // given or in the reverse order.
    bool closes(const TrimArrays& t, const std::vector<Curve>& curves, double tolerance) const {
        auto runs = [&](bool reverse) {
            for (size_t k = 0; k < curves.size(); ++k) {
                const Curve& from = curves[reverse ? curves.size() - 1 - k : k];
                const Curve& to = curves[reverse ? (2 * curves.size() - 2 - k) % curves.size() : (k + 1) % curves.size()];
                if (!meets(point(t, from.firstPoint + from.pointCount - 1), point(t, to.firstPoint), tolerance))
                    return false;
            }
            return true;
        };
        return runs(false) || runs(true);
    }

    // Where the contour opens, taking the curves in their order.
    std::string openContour(const TrimArrays& t, size_t contour, const std::vector<Curve>& curves) const {
        size_t k = 0;
        double gap = 0.0;
        for (size_t i = 0; i < curves.size(); ++i) {
            const auto end = point(t, curves[i].firstPoint + curves[i].pointCount - 1);
            const auto start = point(t, curves[(i + 1) % curves.size()].firstPoint);
            const double distance = std::hypot(end[0] - start[0], end[1] - start[1]);
            if (distance > gap) gap = distance, k = i;
        }
        return "trim contour " + std::to_string(contour) + " of " + std::to_string(curves.size()) +
               " curves does not close: curve " + std::to_string(k) + " ends " + std::to_string(gap) +
               " away from the next one's start";
    }

    void checkTrims(const std::optional<Domain>& domain) {
        std::optional<TrimArrays> trims = readTrims();
        if (!trims || !countsAgree(*trims)) return;
        const TrimArrays& t = *trims;
        const double size = domain ? domain->size() : 1.0;
        size_t curve = 0, knot = 0, pointIndex = 0, outside = 0;
        for (size_t contour = 0; contour < t.edgeCounts.size(); ++contour) {
            std::vector<Curve> curves;
            for (int32_t k = 0; k < t.edgeCounts[contour]; ++k, ++curve) {
                const size_t knotCount = static_cast<size_t>(t.knotCounts[curve]);
                if (!nonDecreasing(t.knots.data() + knot, knotCount))
                    problem("the knots of trim curve " + std::to_string(curve) + " decrease");
                const size_t pointCount = knotCount - static_cast<size_t>(t.orders[curve]);
                for (size_t p = pointIndex; p < pointIndex + pointCount; ++p) {
                    if (t.uvw[3 * p + 2] <= 0) problem("trim curve " + std::to_string(curve) + " has a weight that is not positive");
                    if (domain && outsideDomain(*domain, point(t, p))) ++outside;
                }
                if (pointCount > 0) curves.push_back({pointIndex, pointCount});
                knot += knotCount;
                pointIndex += pointCount;
            }
            if (!curves.empty() && !closes(t, curves, 1e-6 * size)) problem(openContour(t, contour, curves));
        }
        if (outside > 0) warning(std::to_string(outside) + " trim control points lie outside the surface's domain");
    }

    static bool outsideDomain(const Domain& domain, const std::array<double, 2>& uv) {
        const double marginU = 0.01 * (domain.umax - domain.umin), marginV = 0.01 * (domain.vmax - domain.vmin);
        return uv[0] < domain.umin - marginU || uv[0] > domain.umax + marginU || uv[1] < domain.vmin - marginV ||
               uv[1] > domain.vmax + marginV;
    }

    const Block& geometry_;
    const std::string& where_;
    NurbsFindings& findings_;
};

double squaredDistance(const std::array<double, 3>& a, const std::array<double, 3>& b) {
    return (a[0] - b[0]) * (a[0] - b[0]) + (a[1] - b[1]) * (a[1] - b[1]) + (a[2] - b[2]) * (a[2] - b[2]);
}

// A point of a rational B-spline surface by de Boor's algorithm on the
// homogeneous control net ("Pw" is x, y, z, w with U running fastest).
class SurfaceSampler {
public:
    static std::optional<SurfaceSampler> of(const Block& geometry) {
        auto uorder = ints(geometry, "uorder"), vorder = ints(geometry, "vorder");
        auto uknot = doubles(geometry, "uknot"), vknot = doubles(geometry, "vknot"), pw = doubles(geometry, "Pw");
        if (!uorder || !vorder || !uknot || !vknot || !pw || uorder->size() != 1 || vorder->size() != 1)
            return std::nullopt;
        SurfaceSampler s;
        s.degreeU_ = uorder->front() - 1;
        s.degreeV_ = vorder->front() - 1;
        s.knotsU_ = *uknot;
        s.knotsV_ = *vknot;
        s.pw_ = *pw;
        s.countU_ = static_cast<long>(uknot->size()) - uorder->front();
        s.countV_ = static_cast<long>(vknot->size()) - vorder->front();
        if (s.degreeU_ < 0 || s.degreeV_ < 0 || s.countU_ < 1 || s.countV_ < 1 ||
            s.pw_.size() != static_cast<size_t>(4 * s.countU_ * s.countV_))
            return std::nullopt;
        return s;
    }

    // A point of surface number `surface` with its parameters.
    struct Sample {
        std::array<double, 3> point;
        size_t surface;
        double u, v;
    };

    // Points on a grid of n x n parameters across the domain, as samples of
    // surface number `surface`.
    void sample(int n, size_t surface, std::vector<Sample>& samples) const {
        for (int i = 0; i <= n; ++i) {
            for (int j = 0; j <= n; ++j) {
                const double u = u0() + (u1() - u0()) * i / n, v = v0() + (v1() - v0()) * j / n;
                samples.push_back({at(u, v), surface, u, v});
            }
        }
    }

    // The distance from `point` to the surface around the parameters (u, v),
    // within a box of (du, dv) either side: a 5 x 5 grid over the box moves to
    // its nearest point, and the box halves, twelve times. A grid's nearest
    // sample can lie half a step of the grid away from the surface's nearest
    // point, which on a large curved face is more than any tolerance.
    double distanceNear(const std::array<double, 3>& point, double u, double v, double du, double dv) const {
        double best = squaredDistance(point, at(u, v));
        for (int round = 0; round < 12; ++round, du /= 2.0, dv /= 2.0) {
            double bestU = u, bestV = v;
            for (int a = -2; a <= 2; ++a) {
                for (int b = -2; b <= 2; ++b) {
                    const double tu = std::clamp(u + a * du / 2.0, u0(), u1());
                    const double tv = std::clamp(v + b * dv / 2.0, v0(), v1());
                    const double distance = squaredDistance(point, at(tu, tv));
                    if (distance < best) best = distance, bestU = tu, bestV = tv;
                }
            }
            u = bestU, v = bestV;
        }
        return std::sqrt(best);
    }

    double u0() const { return knotsU_[static_cast<size_t>(degreeU_)]; }
    double u1() const { return knotsU_[static_cast<size_t>(countU_)]; }
    double v0() const { return knotsV_[static_cast<size_t>(degreeV_)]; }
    double v1() const { return knotsV_[static_cast<size_t>(countV_)]; }

private:
    using Homogeneous = std::array<double, 4>;

    static long span(const std::vector<double>& knots, int degree, long count, double t) {
        long k = degree;
        while (k < count - 1 && t >= knots[static_cast<size_t>(k + 1)]) ++k;
        return k;
    }

    static Homogeneous deBoor(const std::vector<double>& knots, int degree, long k, double t,
                              std::vector<Homogeneous> d) {
        for (int r = 1; r <= degree; ++r) {
            for (int j = degree; j >= r; --j) {
                const size_t i = static_cast<size_t>(j + k - degree);
                const double denominator = knots[i + static_cast<size_t>(degree - r + 1)] - knots[i];
                const double alpha = denominator == 0 ? 0 : (t - knots[i]) / denominator;
                for (int c = 0; c < 4; ++c)
                    d[static_cast<size_t>(j)][c] = (1 - alpha) * d[static_cast<size_t>(j - 1)][c] + alpha * d[static_cast<size_t>(j)][c];
            }
        }
        return d[static_cast<size_t>(degree)];
    }

    std::array<double, 3> at(double u, double v) const {
        const long ku = span(knotsU_, degreeU_, countU_, u), kv = span(knotsV_, degreeV_, countV_, v);
        std::vector<Homogeneous> column(static_cast<size_t>(degreeV_ + 1));
        std::vector<Homogeneous> row(static_cast<size_t>(degreeU_ + 1));
        for (int a = 0; a <= degreeU_; ++a) {
            const long iu = ku - degreeU_ + a;
            for (int b = 0; b <= degreeV_; ++b) {
                const long iv = kv - degreeV_ + b;
                const size_t at = static_cast<size_t>(4 * (iv * countU_ + iu));
                const double w = pw_[at + 3];
                column[static_cast<size_t>(b)] = {pw_[at] * w, pw_[at + 1] * w, pw_[at + 2] * w, w};
            }
            row[static_cast<size_t>(a)] = deBoor(knotsV_, degreeV_, kv, v, column);
        }
        const Homogeneous p = deBoor(knotsU_, degreeU_, ku, u, row);
        return {p[0] / p[3], p[1] / p[3], p[2] / p[3]};
    }

    int degreeU_ = 0, degreeV_ = 0;
    long countU_ = 0, countV_ = 0;
    std::vector<double> knotsU_, knotsV_, pw_;
};

std::vector<std::array<double, 3>> meshVertices(const Block& geometry) {
    std::vector<std::array<double, 3>> vertices;
    const Statement* statement = geometry.statement("vertices");
    if (!statement || statement->values.size() != 1) return vertices;
    const Value& value = statement->values.front();
    if (value.kind != ValueKind::Binary || value.binary.kind != 'c') return vertices;
    const std::vector<float>& floats = value.binary.floats;
    for (size_t i = 0; i + 2 < floats.size(); i += 3) vertices.push_back({floats[i], floats[i + 1], floats[i + 2]});
    return vertices;
}

}  // namespace

void checkMeshOnSurfaces(const Block& group, const std::string& where, NurbsFindings& findings) {
    constexpr int grid = 48;
    std::vector<SurfaceSampler> surfaces;
    std::vector<SurfaceSampler::Sample> samples;
    std::vector<std::array<double, 3>> vertices;
    for (const Block* object : group.children("object")) {
        const Block* geometry = object->child("geometry");
        if (!geometry) continue;
        if (geometry->name() == "nurbs") {
            if (auto sampler = SurfaceSampler::of(*geometry)) {
                sampler->sample(grid, surfaces.size(), samples);
                surfaces.push_back(std::move(*sampler));
            }
        } else if (geometry->name() == "triangles") {
            vertices = meshVertices(*geometry);
        }
    }
    if (samples.empty() || vertices.empty()) return;
    std::array<double, 3> low = vertices.front(), high = vertices.front();
    for (const auto& vertex : vertices) {
        for (size_t axis = 0; axis < 3; ++axis) {
            low[axis] = std::min(low[axis], vertex[axis]);
            high[axis] = std::max(high[axis], vertex[axis]);
        }
    }
    const double tolerance = 0.02 * std::sqrt(squaredDistance(low, high));
    const size_t step = std::max<size_t>(1, vertices.size() / 200);
    double worst = 0.0;
    size_t worstIndex = 0;
    for (size_t i = 0; i < vertices.size(); i += step) {
        size_t nearest = 0;
        double nearestDistance = std::numeric_limits<double>::max();
        for (size_t k = 0; k < samples.size(); ++k) {
            const double distance = squaredDistance(vertices[i], samples[k].point);
            if (distance < nearestDistance) nearestDistance = distance, nearest = k;
        }
        double distance = std::sqrt(nearestDistance);
        if (distance > tolerance) {
            // Only a vertex that the grid leaves too far is looked at closely.
            const SurfaceSampler::Sample& sample = samples[nearest];
            const SurfaceSampler& surface = surfaces[sample.surface];
            distance = surface.distanceNear(vertices[i], sample.u, sample.v, (surface.u1() - surface.u0()) / grid,
                                            (surface.v1() - surface.v0()) / grid);
        }
        if (distance > worst) worst = distance, worstIndex = i;
    }
    if (worst > tolerance) {
        findings.problems.push_back(where + ": mesh vertex " + std::to_string(worstIndex) + " lies " +
                                    std::to_string(worst) + " from the group's exact surfaces, more than " +
                                    std::to_string(tolerance));
    }
}

void checkNurbsGeometry(const Block& geometry, const std::string& where, NurbsFindings& findings) {
    NurbsCheck(geometry, where, findings).run();
}

}  // namespace scenereader
