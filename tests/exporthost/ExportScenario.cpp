#include "tests/exporthost/ExportScenario.h"

#include <gtest/gtest.h>

#include <fstream>

#include "host/testing/TestSession.h"
#include "scenereader/SceneChecks.h"
#include "scenereader/SceneReader.h"
#include "tests/toolkit/FileText.h"

namespace exporttest {

ExportScenario::ExportScenario() {
    previous_ = fs::current_path();
    const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
    directory_ = fs::temp_directory_path() / ("vantrel_export_" + std::string(test->test_suite_name()) + "_" + test->name());
    fs::remove_all(directory_);
    fs::create_directories(directory_);
    fs::current_path(directory_);
    // Grey is the host's own default appearance.
    session.setDefaultAppearance(host::fixtures::appearance(u"default", {0.5, 0.5, 0.5}));
}

ExportScenario::~ExportScenario() {
    plugin_.reset();
    fs::current_path(previous_);
    fs::remove_all(directory_);
}

void ExportScenario::open(host::Model& model, int mode) {
    session.setCurrentModel(&model);
    session.setMode(mode);
}

void ExportScenario::writeSettings() const {
    if (settings_.empty()) return;
    std::ofstream file(directory_ / "vantrel_plugin_settings.xml");
    file << "<?xml version=\"1.0\" ?>\n<vantrel_plugin_settings>\n";
    for (const auto& [element, text] : settings_) file << "<" << element << ">" << text << "</" << element << ">\n";
    file << "</vantrel_plugin_settings>\n";
}

void ExportScenario::start() {
    if (plugin_) return;
    writeSettings();
    plugin_ = host::fixtures::startPlugin(session);
}

void ExportScenario::pressExport(const std::string& fileName) {
    start();
    session.script().chooseFile(path(fileName).u16string());
    session.script().pressButton("ExportFinished", "ExportOk");
    EXPECT_EQ(plugin_->press("Vantrel Plugin Export"), 0);
}

int ExportScenario::press(const std::string& command) {
    start();
    return plugin_->press(command);
}

scenereader::Document ExportScenario::readScene(const std::string& fileName) const {
    scenereader::Document scene = scenereader::readSceneFile(path(fileName).string());
    for (const std::string& problem : scenereader::checkScene(scene)) ADD_FAILURE() << problem;
    return scene;
}

std::string ExportScenario::settingsFile() const {
    return testsupport::fileText(directory_ / "vantrel_plugin_settings.xml");
}

const scenereader::Block& topGroup(const scenereader::Document& scene) {
    const scenereader::Block* group = scene.root.child("group");
    if (!group) throw std::runtime_error("the scene has no group");
    return *group;
}

std::vector<const scenereader::Block*> objectsOf(const scenereader::Block& block) {
    return block.descendants("object");
}

namespace {

const scenereader::Value& arrayValue(const scenereader::Block& geometry, std::string_view name) {
    const scenereader::Statement* statement = geometry.statement(name);
    if (!statement || statement->values.empty()) throw std::runtime_error("no attribute " + std::string(name));
    return statement->values.front();
}

}  // namespace

std::vector<float> floatsOf(const scenereader::Block& geometry, std::string_view name) {
    return arrayValue(geometry, name).binary.floats;
}

std::vector<int32_t> intsOf(const scenereader::Block& geometry, std::string_view name) {
    return arrayValue(geometry, name).binary.ints;
}

std::vector<double> doublesOf(const scenereader::Block& geometry, std::string_view name) {
    return arrayValue(geometry, name).binary.doubles;
}

std::vector<std::string> materialKeys(const scenereader::Block& block) {
    std::vector<std::string> keys;
    for (const scenereader::Block* material : block.descendants("material")) keys.push_back(material->name());
    return keys;
}

std::string importerOption(const scenereader::Document& scene, std::string_view name) {
    const scenereader::Block* load = scene.root.child("load");
    if (!load) return "<no load block>";
    const scenereader::Statement* option = load->statement(name);
    if (!option || option->values.empty()) return "<missing>";
    return option->values.front().text;
}

}  // namespace exporttest
