// Pictures of exported scenes drawn by "vantrel-scene preview", run as a
// user runs it (under xvfb-run when there is no display): the model must be
// seen, spread over the rectangle where its box falls, on a plain
// background elsewhere.
#include <gtest/gtest.h>
#include <unistd.h>

#include <Image_AlienPixMap.hxx>
#include <cstdlib>
#include <filesystem>
#include <sstream>

#include "scenetools/Preview.h"
#include "tests/toolkit/FileText.h"

namespace {

std::filesystem::path sharedModels() { return std::filesystem::path(VANTREL_SOURCE_DIR) / ".." / "shared" / "models"; }

std::string quote(const std::filesystem::path& path) { return "'" + path.string() + "'"; }

struct Box {
    int x0 = 0, y0 = 0, x1 = 0, y1 = 0;
};

class Preview : public testing::Test {
protected:
    void SetUp() override {
        std::filesystem::create_directories(folder_);
        // Under the leak checker the preview runs without it: at exit it stops
        // every thread, and the threads of Mesa's software rasterizer hold it
        // there for good. Nor does it unwind the stack slowly on each
        // allocation: Mesa's compiler allocates while the unwinder holds its
        // lock, and the slow unwinder then waits for that lock for good. The
        // scene's document is checked for leaks by the glTF tests. A preview
        // that hangs for another reason ends in 2 minutes.
        prefix_ = "ASAN_OPTIONS=\"${ASAN_OPTIONS}:detect_leaks=0:fast_unwind_on_malloc=1\" timeout 120 ";
        const char* display = std::getenv("DISPLAY");
        if (display && *display) return;
        if (std::system("command -v xvfb-run >/dev/null 2>&1") != 0) {
            GTEST_SKIP() << "no X display and no xvfb-run: the preview can't be drawn here (install xvfb)";
        }
        // Tests run side by side: each looks for a free display from its own number.
        prefix_ += "xvfb-run -a -n " + std::to_string(100 + ::getpid() % 800) + " -s '-screen 0 1280x1024x24' ";
    }
    void TearDown() override { std::filesystem::remove_all(folder_); }

    // Runs a command and answers its standard output, failing the test on a non-zero exit.
    std::string run(const std::string& command) {
        const std::filesystem::path output = folder_ / "stdout.txt";
        const int status = std::system((command + " >" + quote(output) + " 2>&1").c_str());
        const std::string text = testsupport::fileText(output);
        EXPECT_EQ(status, 0) << command << "\n" << text;
        return text;
    }

    std::filesystem::path exportModel(const std::filesystem::path& model) {
        const std::filesystem::path scene = folder_ / (model.stem().string() + ".vnz");
        run(quote(VANTREL_HOST_PROGRAM) + " export " + quote(model) + " -o " + quote(scene) + " --workdir " +
            quote(folder_));
        return scene;
    }

    // Draws the scene and answers the pixel box that the command reports.
    Box preview(const std::filesystem::path& scene, const std::string& options) {
        const std::string said = run(prefix_ + quote(VANTREL_SCENE_PROGRAM) + " preview " + quote(scene) + " -o " +
                                     quote(picture_) + " --size 640x480 " + options);
        Box box;
        const size_t at = said.find("model box at pixels ");
        EXPECT_NE(at, std::string::npos) << said;
        if (at != std::string::npos) std::istringstream(said.substr(at + 20)) >> box.x0 >> box.y0 >> box.x1 >> box.y1;
        return box;
    }

    // The picture shows the model: a good share of the box differs from the
    // background, in each of its four quarters, and little outside it.
    void expectModelShown(const Box& box) {
        Image_AlienPixMap image;
        ASSERT_TRUE(image.Load(TCollection_AsciiString(picture_.string().c_str()))) << picture_;
        ASSERT_EQ(image.SizeX(), 640u);
        ASSERT_EQ(image.SizeY(), 480u);
        ASSERT_LT(box.x0, box.x1);
        ASSERT_LT(box.y0, box.y1);
        size_t inQuarter[4] = {0, 0, 0, 0}, pixelsInQuarter[4] = {0, 0, 0, 0}, outside = 0, pixelsOutside = 0;
        const int midX = (box.x0 + box.x1) / 2, midY = (box.y0 + box.y1) / 2;
        for (int y = 0; y < 480; ++y) {
            for (int x = 0; x < 640; ++x) {
                const bool model = differs(image.PixelColor(x, y));
                if (x < box.x0 || x > box.x1 || y < box.y0 || y > box.y1) {
                    outside += model;
                    ++pixelsOutside;
                    continue;
                }
                const int quarter = (x > midX) + 2 * (y > midY);
                inQuarter[quarter] += model;
                ++pixelsInQuarter[quarter];
            }
        }
        for (int q = 0; q < 4; ++q) {
            EXPECT_GT(inQuarter[q], pixelsInQuarter[q] / 20) << "quarter " << q << " of the model's box is empty";
        }
        EXPECT_LE(outside, pixelsOutside / 100 + 1) << "the model shows outside its box";
    }

    static bool differs(const Quantity_ColorRGBA& colour) {
        const Quantity_Color rgb = colour.GetRGB();
        double values[3];
        rgb.Values(values[0], values[1], values[2], Quantity_TOC_RGB);  // the bytes as stored
        for (int i = 0; i < 3; ++i) {
            if (std::abs(values[i] * 255 - scenetools::previewBackground[i]) > 6) return true;
        }
        return false;
    }

    std::filesystem::path folder_ =
        std::filesystem::temp_directory_path() / ("vantrel_preview_test_" + std::to_string(::getpid()));
    std::filesystem::path picture_ = folder_ / "picture.png";
    std::string prefix_;
};

TEST_F(Preview, SampleIsSeenFromItsFirstCameraFromANamedOneAndFitted) {
    const std::filesystem::path model = folder_ / "sample.step";
    run(quote(VANTREL_HOST_PROGRAM) + " sample " + quote(model));
    const std::filesystem::path scene = exportModel(model);
    expectModelShown(preview(scene, ""));
    expectModelShown(preview(scene, "--camera FRONT"));
    expectModelShown(preview(scene, "--fit"));
}

TEST_F(Preview, AssemblyWithMaterialsIsSeen) {
    const std::filesystem::path model = sharedModels() / "as1-oc-214-mat.stp";
    if (!std::filesystem::is_regular_file(model)) GTEST_SKIP() << "no shared model " << model << ": skipped";
    expectModelShown(preview(exportModel(model), "--fit"));
}

}  // namespace
