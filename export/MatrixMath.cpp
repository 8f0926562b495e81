#include "export/MatrixMath.h"

MatrixRows multiplyMatrix(const ProMatrix a, const ProMatrix b, ProMatrix out) {
    ProMatrix product;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            double sum = 0.0;
            for (int k = 0; k < 4; ++k) sum += a[row][k] * b[k][column];
            product[row][column] = sum;
        }
    }
    copyMatrix(product, out);
    return out;
}

bool invertSimilarity(const ProMatrix in, ProMatrix out) {
    if (!in) {
        setIdentity(out);
        return true;
    }
    double s = in[0][0] * in[0][0] + in[0][1] * in[0][1] + in[0][2] * in[0][2];
    if (1e-18 > s) return false;
    double k = 1.0 / s;
    ProMatrix inverse;
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j) inverse[i][j] = k * in[j][i];
        inverse[i][3] = 0.0;
    }
    for (int j = 0; j < 3; ++j) {
        double sum = 0.0;
        for (int i = 0; i < 3; ++i) sum += in[3][i] * in[j][i];
        inverse[3][j] = -k * sum;
    }
    inverse[3][3] = 1.0;
    copyMatrix(inverse, out);
    return true;
}

void copyMatrix(const ProMatrix in, ProMatrix out) {
    if (!in) {
        setIdentity(out);
        return;
    }
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column) out[row][column] = in[row][column];
}

void setIdentity(ProMatrix out) {
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column) out[row][column] = row == column ? 1.0 : 0.0;
}
