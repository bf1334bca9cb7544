#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "platform/dynamic_library.h"
#include "platform/whole_file.h"
#include "standin/core/disk.h"
#include "standin/core/host.h"
#include "tests/standin/recording_plugin.h"
#include "tests/support/temp_folder.h"

/// A program folder with the recording plug-in, in a path that is not plain, and the host in it.
class Playground {
public:
    Playground() {
        namespace fs = std::filesystem;
        const fs::path folder = fs::path(programFolder()) / "plugins" / "quillet";
        fs::create_directories(folder);
        pluginPath_ = (folder / fs::path(RECORDING_PLUGIN).filename()).u16string();
        fs::copy_file(RECORDING_PLUGIN, fs::path(pluginPath_));
        host_ = std::make_unique<standin::Host>(
            standin::Host::Options{.programFolder = programFolder()});
    }
    ~Playground() {
        if (recorder_)
            recorder_->react = nullptr;
        library_.reset();
    }
    Playground(const Playground&) = delete;
    Playground& operator=(const Playground&) = delete;

    standin::Host& host() { return *host_; }
    std::u16string programFolder() const { return folder_ / u"Das Pr\u00F6gramm"; }
    const std::u16string& pluginPath() const { return pluginPath_; }
    const TempFolder& folder() const { return folder_; }

    /// Loads the plug-in and holds on to its recorder.
    Recorder& plugin() {
        if (!recorder_) {
            EXPECT_TRUE(host_->loadPlugin(pluginPath_)) << host_->error();
            library_ = std::make_unique<platform::DynamicLibrary>(pluginPath_);
            recorder_ =
                reinterpret_cast<Recorder* (*)()>(library_->symbol("recorder_of_the_tests"))();
        }
        return *recorder_;
    }

    /// A copy of the sample house in this folder.
    std::u16string house(std::u16string_view name = u"Haus am S\u00FCdhang.ifc") {
        const auto bytes = platform::readWholeFile(
            std::filesystem::path(QUILLET_SOURCE_DIR "/samples/sample_house.ifc").u16string());
        return folder_.write(name, bytes.value());
    }

    standin::Object& southWall() { return *host_->objects().findByGuid(u"3aP0vaNNWm5LC0gJaDf$li"); }

private:
    TempFolder folder_;
    std::u16string pluginPath_;
    std::unique_ptr<platform::DynamicLibrary> library_;
    Recorder* recorder_ = nullptr;
    std::unique_ptr<standin::Host> host_;  // goes first: it calls the recorder
};
