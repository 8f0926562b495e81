#pragma once
// Helpers on the host's 4x4 matrices: row vectors, translation in row 3.
#include "toolkit/ProToolkit.h"

using MatrixRows = double (*)[4];

// out := a times b, each row of a against the columns of b. Answers out.
MatrixRows multiplyMatrix(const ProMatrix a, const ProMatrix b, ProMatrix out);

// Inverse of a matrix whose upper 3x3 block is a rotation times a uniform
// scale, the scale taken from row 0. A null input gives the identity. Answers
// false, leaving out alone, for a degenerate matrix.
bool invertSimilarity(const ProMatrix in, ProMatrix out);

// Copies the 16 numbers, or the identity if in is null.
void copyMatrix(const ProMatrix in, ProMatrix out);

void setIdentity(ProMatrix out);
