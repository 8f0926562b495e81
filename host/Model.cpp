#include "host/Model.h"

#include <algorithm>
#include <cmath>

namespace host {
namespace {

// The item at the remembered place of `id`, else the item found after all
// places were written down afresh; null if there is none.
template <typename Place, typename At, typename Collect>
auto findByPlace(std::unordered_map<int, Place>& places, int id, At at, Collect collect) -> decltype(at(Place{})) {
    if (auto hit = places.find(id); hit != places.end()) {
        if (auto item = at(hit->second)) return item;
    }
    places.clear();
    collect(places);
    auto hit = places.find(id);
    return hit == places.end() ? nullptr : at(hit->second);
}

template <typename Item, typename Key>
const Item* findFirst(const std::vector<Item>& items, Key Item::*field, const Key& key) {
    auto found = std::find_if(items.begin(), items.end(), [&](const Item& item) { return item.*field == key; });
    return found == items.end() ? nullptr : &*found;
}

}  // namespace

Matrix multiply(const Matrix& a, const Matrix& b) {
    Matrix product{};
    for (size_t row = 0; row < 4; ++row) {
        for (size_t column = 0; column < 4; ++column) {
            double sum = 0.0;
            for (size_t k = 0; k < 4; ++k) sum += a[row][k] * b[k][column];
            product[row][column] = sum;
        }
    }
    return product;
}

std::optional<Matrix> invertAffine(const Matrix& m) {
    // The inverse of the upper 3 by 3 block by cofactors, then the
    // translation taken back through it.
    auto cofactor = [&](size_t row, size_t column) {
        size_t r0 = (row + 1) % 3, r1 = (row + 2) % 3, c0 = (column + 1) % 3, c1 = (column + 2) % 3;
        return m[r0][c0] * m[r1][c1] - m[r0][c1] * m[r1][c0];
    };
    double determinant = m[0][0] * cofactor(0, 0) + m[0][1] * cofactor(0, 1) + m[0][2] * cofactor(0, 2);
    if (!std::isfinite(determinant) || std::abs(determinant) < 1e-300) return std::nullopt;
    Matrix inverse = identityMatrix();
    for (size_t row = 0; row < 3; ++row) {
        for (size_t column = 0; column < 3; ++column) inverse[row][column] = cofactor(column, row) / determinant;
    }
    for (size_t column = 0; column < 3; ++column) {
        double sum = 0.0;
        for (size_t k = 0; k < 3; ++k) sum += m[3][k] * inverse[k][column];
        inverse[3][column] = -sum;
    }
    return inverse;
}

const Surface* Model::findSurface(int id) const {
    auto at = [&](std::pair<size_t, size_t> place) -> const Surface* {
        const std::vector<Surface>* list = &surfaces;
        if (place.first > 0) list = place.first <= quilts.size() ? &quilts[place.first - 1].surfaces : nullptr;
        if (!list || place.second >= list->size() || (*list)[place.second].id != id) return nullptr;
        return &(*list)[place.second];
    };
    return findByPlace(surfacePositions_, id, at, [&](auto& places) {
        for (size_t index = 0; index < surfaces.size(); ++index) places.try_emplace(surfaces[index].id, 0, index);
        for (size_t quilt = 0; quilt < quilts.size(); ++quilt) {
            const std::vector<Surface>& list = quilts[quilt].surfaces;
            for (size_t index = 0; index < list.size(); ++index) places.try_emplace(list[index].id, quilt + 1, index);
        }
    });
}

const Feature* Model::findFeature(int id) const {
    auto at = [&](size_t place) -> const Feature* {
        return place < features.size() && features[place].id == id ? &features[place] : nullptr;
    };
    return findByPlace(featurePositions_, id, at, [&](auto& places) {
        for (size_t index = 0; index < features.size(); ++index) places.try_emplace(features[index].id, index);
    });
}

const Quilt* Model::findQuilt(int id) const { return findFirst(quilts, &Quilt::id, id); }
const Layer* Model::findLayer(int id) const { return findFirst(layers, &Layer::id, id); }
const Representation* Model::findRepresentation(int id) const {
    return findFirst(representations, &Representation::id, id);
}

const Representation* Model::findRepresentation(std::u16string_view name) const {
    return findFirst(representations, &Representation::name, std::u16string(name));
}

std::optional<std::vector<const Feature*>> componentsAlong(const Model& owner, std::span<const int> ids) {
    std::vector<const Feature*> components;
    const Model* level = &owner;
    for (int id : ids) {
        if (!level) return std::nullopt;
        const Feature* feature = level->findFeature(id);
        if (!feature || feature->type != PRO_FEAT_TYPE_COMPONENT) return std::nullopt;
        components.push_back(feature);
        level = feature->component;
    }
    return components;
}

}  // namespace host
