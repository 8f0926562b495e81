#pragma once
// The benchmarks' generated assembly: six parts with faces of every common
// kind (planes, cylinders, cones, spheres, tori, fillets), each placed five
// times: 30 occurrences.
#include <filesystem>

// Writes it as a STEP file in millimetres.
void writeGeneratedAssembly(const std::filesystem::path& path);
