#include "export/MaterialRecord.h"

bool operator<(const MaterialRecord& a, const MaterialRecord& b) {
    if (a.red < b.red) return true;
    if (b.red < a.red) return false;
    if (a.green < b.green) return true;
    if (b.green < a.green) return false;
    if (a.blue < b.blue) return true;
    if (b.blue < a.blue) return false;
    if (a.intensity < b.intensity) return true;
    if (b.intensity < a.intensity) return false;
    // std::string compares its bytes as unsigned, as the order asks.
    int names = a.name.compare(b.name);
    if (names != 0) return names < 0;
    return a.texture < b.texture;
}
