#include "animation/FraReader.h"

#include <algorithm>
#include <cstring>

#include "animation/FraScanner.h"

namespace {

using fra::FraScanner;
using fra::ScanResult;

// The key and the numbers of the record being read. They are reused from
// record to record, so a number that fails to convert keeps the value of the
// record before.
struct RecordBuffers {
    ProAsmcomppath path{};
    float position[12] = {};
};

// Scans words until `token` holds `word`; false at the end of the input.
// The search stops at the end of the input: a file without the word has
// nothing more to give, and looping on would hang the host.
bool findWord(FraScanner& in, char (&token)[fra::tokenCapacity], const char* word) {
    while (std::strcmp(token, word) != 0) {
        if (!in.scanWord(token)) return false;
    }
    return true;
}

// " (%d)" for one id, " (%d %d)" for two, and for more the opening " (%d",
// one "%d" for each inner id, and the closing "%d)", each a read of its own.
void readPath(FraScanner& in, ProAsmcomppath& path) {
    const int count = path.componentIdCount;
    int* ids = path.componentIds;
    auto opening = [&] {
        in.skipWhiteSpace();
        return in.scanCharacter('(') == ScanResult::Converted && in.scanInt(ids[0]) == ScanResult::Converted;
    };
    if (count <= 2) {
        if (!opening()) return;
        if (count == 2) {
            in.skipWhiteSpace();
            if (in.scanInt(ids[1]) != ScanResult::Converted) return;
        }
        in.scanCharacter(')');
        return;
    }
    opening();
    for (int index = 1; index < count - 1; ++index) in.scanInt(ids[index]);
    if (in.scanInt(ids[count - 1]) == ScanResult::Converted) in.scanCharacter(')');
}

FrameMatrix positionMatrix(const float (&position)[12]) {
    FrameMatrix matrix{};
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 3; ++column) matrix[row][column] = position[3 * row + column];
        matrix[row][3] = row == 3 ? 1.0 : 0.0;
    }
    return matrix;
}

// Appends the record's matrix to its component's sequence, which grows by
// half its capacity when full.
void appendRecord(AnimationFrameTable& frames, const RecordBuffers& record) {
    ProAsmcomppath key{};
    key.componentIdCount = record.path.componentIdCount;
    std::copy_n(record.path.componentIds, key.componentIdCount, key.componentIds);
    FrameSequence& sequence = frames[key];
    if (sequence.size() == sequence.capacity()) sequence.reserve(sequence.capacity() + std::max<std::size_t>(sequence.capacity() / 2, 1));
    sequence.push_back(positionMatrix(record.position));
}

// The body: every "Part:" record up to the end of the input. Later "MaFrame"
// words and their numbers are skipped like any other word, so the table is
// made from the order of the records alone.
void readRecords(FraScanner& in, char (&token)[fra::tokenCapacity], AnimationFrameTable& frames) {
    RecordBuffers record;
    while (in.scanWord(token)) {
        if (std::strcmp(token, "Part:") != 0) continue;
        std::int32_t count = record.path.componentIdCount;
        in.scanInt(count);
        // A path holds 1 to 25 ids. A record that claims another length is
        // skipped and leaves the buffers as they were; its words are then
        // passed over like any other.
        if (count < 1 || count > PRO_MAX_ASSEM_LEVEL) continue;
        record.path.componentIdCount = count;
        readPath(in, record.path);
        for (float& number : record.position) in.scanFloat(number);
        appendRecord(frames, record);
    }
}

// A sequence in which no two matrices differ in any of their 16 numbers.
// Comparing each with the first, the first itself included, finds a
// difference exactly when some pair differs (a NaN differs from itself), and
// keeps a long file linear.
bool isStill(const FrameSequence& sequence) {
    for (const FrameMatrix& matrix : sequence) {
        for (int row = 0; row < 4; ++row)
            for (int column = 0; column < 4; ++column)
                if (matrix[row][column] != sequence.front()[row][column]) return false;
    }
    return true;
}

void removeStillComponents(AnimationFrameTable& frames) {
    for (auto entry = frames.begin(); entry != frames.end();) {
        auto next = std::next(entry);
        if (isStill(entry->second)) frames.erase(entry);
        entry = next;
    }
}

}  // namespace

void readFraFile(std::string_view bytes, AnimationFrameTable& frames, std::int32_t& frameCount) {
    FraScanner in(bytes);
    char token[fra::tokenCapacity] = {};
    if (!findWord(in, token, "parts:")) return;
    std::int32_t parts = 0;
    in.scanInt(parts);
    if (!findWord(in, token, "frames:")) return;
    in.scanInt(frameCount);
    if (findWord(in, token, "MaFrame")) {
        std::int32_t frameNumber = 0;
        in.scanInt(frameNumber);
        readRecords(in, token, frames);
    }
    removeStillComponents(frames);
}
