#pragma once

#include <memory>
#include <string>
#include <vector>

#include "standin/core/host.h"
#include "tests/flows/displays.h"
#include "tests/support/temp_folder.h"

/// What a user enters in the property window; an empty field stays as the window shows it.
struct Entered {
    std::u16string name = {};
    std::u16string value = {};
    std::u16string quantityType = {};
    std::u16string prefix = {};
    std::u16string unit = {};
};

/// The stand-in host with a copy of the built plug-in in a folder of its own, and the user in front
/// of it.
class FlowHost {
public:
    /// Who answers the plug-in's windows: the host, with prepared answers, or whoever drives the
    /// real ones.
    enum class Windows { Answered, Real };

    explicit FlowHost(const std::u16string& language = u"en", bool usesGeometryCache = false,
                      Windows windows = Windows::Answered);
    /// inside, way: where its folder is, see TempFolder.
    explicit FlowHost(std::u16string_view inside, TempFolder::Way way);
    ~FlowHost();

    standin::Host& host() { return *host_; }
    const TempFolder& folder() const { return folder_; }

    /// Loads the plug-in and opens the files, which are copied into the folder if they lie
    /// elsewhere, because logs appear beside them; fails the test when that does not succeed.
    bool start(const std::vector<std::u16string>& sources);
    /// Ends everything and begins anew with the same program folder.
    void restart();
    bool reopen(const std::vector<std::u16string>& paths) { return host().open(paths); }

    // Each returns whether the plug-in recorded an undo entry.
    bool addSet(const standin::Object& object, const std::u16string& name);
    bool addProperty(const standin::Object& object, const std::u16string& setGuid,
                     const Entered& entered, bool isQuantity = false);
    bool editProperty(const standin::Object& object, const std::u16string& setGuid,
                      const std::u16string& name, const Entered& entered);
    bool deleteProperty(const standin::Object& object, const std::u16string& setGuid,
                        const std::u16string& name);
    bool renameSet(const standin::Object& object, const std::u16string& setGuid,
                   const std::u16string& name);
    bool deleteSet(const standin::Object& object, const std::u16string& setGuid);
    /// fields: what the edit-many window is answered.
    bool editMany(const std::vector<const standin::Object*>& objects,
                  const standin::WindowFields& fields);
    /// @return whether the button could be clicked.
    bool exportTo(const std::u16string& target);
    /// The log that an export with trouble has left, UTF-8; empty when there is none.
    std::string exportLog();
    /// What the next message of the plug-in's own is answered: "yes", "no", "ok", "cancel".
    void answerMessage(const std::u16string& button);

    /// Objects of all loaded files that can be edited.
    std::vector<const standin::Object*> editableObjects();
    const standin::Object* byGuid(const std::u16string& guid) {
        return host().objects().findByGuid(guid);
    }
    SeenObjects seen();
    SeenObjects seen(const std::vector<std::u16string>& guids);
    /// The edit log that a save writes; saves.
    std::string savedLog();

    enum class Item {
        Edit,
        AddSet,
        EditMany,
        Export,
        OpenRecent,
        Options,
        IgnoreEnumerationErrors,
        EraseWhiteSigns
    };
    bool click(Item item);

    /// What nobody should ever see: broken rules of the interface, questions without an answer, and
    /// messages; joined for a test's message.
    std::string complaints();

private:
    bool recorded(std::size_t doneBefore);
    bool request(HostChangeAction action, const standin::Object& object,
                 const std::u16string& setGuid, const std::u16string& property,
                 bool isQuantity = false);
    void answerProperty(const Entered& entered, const std::u16string& setName = {});

    TempFolder folder_;
    std::u16string language_;
    bool usesGeometryCache_;
    Windows windows_;
    std::unique_ptr<standin::Host> host_;
};

/// Copies the built plug-in and its data into the folder, laid out as beside a host.
void layOutPlugin(const TempFolder& folder);
