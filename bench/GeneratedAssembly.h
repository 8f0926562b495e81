#pragma once
// The benchmarks' generated assembly: six parts with faces of every common
// kind (planes, cylinders, cones, spheres, tori, fillets), each placed five
// times: 30 occurrences.
#include <filesystem>

// Writes it as a STEP file in millimetres.
void writeGeneratedAssembly(const std::filesystem::path& path);

// The scale case: `parts` parts of `boxesPerPart` separate boxes each (six
// faces a box), each part placed `copiesPerPart` times on a grid. By default
// 50 parts of 67 boxes (20,100 faces), 5,000 occurrences.
struct ScaleAssembly {
    int parts = 50;
    int boxesPerPart = 67;
    int copiesPerPart = 100;
};
void writeScaleAssembly(const std::filesystem::path& path, const ScaleAssembly& size = {});
