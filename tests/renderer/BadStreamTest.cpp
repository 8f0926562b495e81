// Bad input on the link of a real vantrel-app: each bad stream is dropped
// with a line in the log, what the renderer held stays as it was, and a good
// stream sent after it is received whole.
#include <gtest/gtest.h>

#include <sys/socket.h>
#include <unistd.h>

#include <chrono>
#include <thread>

#include "RendererProcesses.h"
#include "SceneDifference.h"
#include "importers/sceneapi/nvxScene_api_file.h"
#include "scenereader/SceneReader.h"
#include "renderer/LinkProtocol.h"
#include "renderer/LinkSocket.h"
#include "renderer/Registration.h"

namespace renderer::testing {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

constexpr std::size_t MAX_STREAM = 200000;

// A small scene of one model with a mesh, written by the project's writer.
std::string goodScene(const char* model, float size) {
    char* bytes = nullptr;
    std::size_t length = 0;
    FILE* stream = open_memstream(&bytes, &length);
    {
        nvxScene_api_file scene(stream, true);
        scene.set_version(7);
        scene.begin_group(model, true);
        scene.begin_object("plate", true);
        scene.begin_geometry("triangles");
        const float vertices[] = {0, 0, 0, size, 0, 0, 0, size, 0};
        const std::int32_t triangles[] = {0, 1, 2};
        ArrayRecord vertexArray{vertices, 3}, triangleArray{triangles, 3};
        scene.set_attribute("vertices", ATTR_FLOAT3_ARRAY, &vertexArray);
        scene.set_attribute("triangles", ATTR_INT_ARRAY, &triangleArray);
        scene.end_geometry();
        scene.end_object();
        scene.end_group();
    }
    std::fclose(stream);
    std::string text(bytes, length);
    std::free(bytes);
    return text;
}

struct BadStream {
    const char* name;
    std::string bytes;
    bool finished;           // sent with the end-of-stream line
    bool stalls = false;     // the client then sends nothing and keeps the connection
};

void PrintTo(const BadStream& stream, std::ostream* out) { *out << stream.name; }

std::vector<BadStream> badStreams() {
    const std::string good = goodScene("held", 2);
    return {
        {"Garbage", std::string("\x00\xff{{ group }", 12) + "\n" + std::string(300, '\x01'), true},
        {"TruncatedInsideAnArray", good.substr(0, good.find("triangles") + 14), true},
        {"ClientVanishesMidStream", good.substr(0, good.size() / 2), false},
        {"UnboundedStream", std::string(MAX_STREAM * 3, 'x'), false},
        {"StalledClient", good.substr(0, 40), false, true},
        {"NoGroup", "version 7\n", true},
    };
}

class BadStreamTest : public ::testing::TestWithParam<BadStream> {};

TEST_P(BadStreamTest, IsDroppedAndTheNextGoodStreamIsReceivedWhole) {
    PrivateHome home;
    const fs::path out = home.root() / "out";
    // A range of ports, of which the renderer takes the first that is free.
    ASSERT_EQ(registerRenderer({VANTREL_BIN_DIR "/vantrel-app", out, 30000, 30999}), "");
    const pid_t app = home.startApp(
        {"--out", out.string(), "--max-stream", std::to_string(MAX_STREAM), "--idle-timeout", "500"});
    const int port = home.portOf(app);
    ASSERT_GT(port, 0);
    ASSERT_EQ(sendStream(port, goodScene("held", 2), true).rfind("accepted", 0), 0u);
    const std::string heldBefore = fileText(out / "held.vnz");

    const BadStream& bad = GetParam();
    if (bad.stalls) {
        const int socket = connectTo("127.0.0.1", port);
        sendAll(socket, bad.bytes);
        std::this_thread::sleep_for(1s);
        close(socket);
    } else {
        EXPECT_NE(sendStream(port, bad.bytes, bad.finished).rfind("accepted", 0), 0u);
    }
    const std::string good = goodScene("next", 3);
    ASSERT_EQ(sendStream(port, good, true), "accepted " + std::to_string(good.size() + END_OF_STREAM.size()) + " bytes\n");

    EXPECT_EQ(logLinesStartingWith(out / "vantrel-app.log", "stream dropped"), 1u);
    EXPECT_EQ(fileText(out / "held.vnz"), heldBefore);
    const scenereader::Document sent = scenereader::parseScene(good);
    EXPECT_EQ(firstDifference(modelGroupOf(out / "next.vnz"), *sent.root.children("group").at(0)), "");
}

INSTANTIATE_TEST_SUITE_P(Cases, BadStreamTest, ::testing::ValuesIn(badStreams()),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace renderer::testing
