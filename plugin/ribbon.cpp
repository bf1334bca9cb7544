#include "plugin/ribbon.h"

#include <algorithm>
#include <string_view>

#include "plugin/host_api.h"
#include "plugin/plugin_texts.h"

namespace {

/// Makes items one after another.
class Builder {
public:
    Builder(const HostCalls& host, const std::u16string& imageFolder, HostEventCallback clicked)
        : host_(host), imageFolder_(imageFolder), clicked_(clicked) {}

    void openGroup(const char* captionKey) {
        if (const auto create = host_.api().create_group)
            group_ = std::max(create(host_.handle(), host_.text(captionKey).c_str()), 0);
    }

    /// create: one of the host's functions that make a button, or null. hintKey: null for none.
    template <class Create>
    HostButtonId addButton(Create create, const char* textKey, const char* hintKey) {
        return make(create, group_, textKey, hintKey);
    }

    /// A button or check box in the list of the button `list`.
    template <class Create>
    HostButtonId addToList(HostButtonId list, Create create, const char* textKey,
                           const char* hintKey) {
        const HostButtonId item = make(create, 0, textKey, hintKey);
        if (const auto add = host_.api().add_button; add && list != 0 && item != 0)
            add(host_.handle(), list, item);
        return item;
    }

    void setImage(HostButtonId button, std::u16string_view image) {
        setImage(host_.api().set_button_image, button, image);
    }
    void setImages(HostButtonId button, std::u16string_view large, std::u16string_view small) {
        setImage(button, large);
        setImage(host_.api().set_button_small_image, button, small);
    }

private:
    template <class Create>
    HostButtonId make(Create create, HostButtonId group, const char* textKey, const char* hintKey) {
        if (!create)
            return 0;
        const std::u16string text = host_.text(textKey);
        const std::u16string hint = hintKey ? host_.text(hintKey) : std::u16string();
        const HostButtonId item =
            create(host_.handle(), group, text.c_str(), hintKey ? hint.c_str() : nullptr, clicked_);
        return std::max(item, 0);  // a negative one is none
    }

    template <class Set>
    void setImage(Set set, HostButtonId button, std::u16string_view image) {
        if (set && button != 0)
            set(host_.handle(), button, (imageFolder_ + std::u16string(image)).c_str());
    }

    const HostCalls& host_;
    const std::u16string& imageFolder_;
    HostEventCallback clicked_;
    HostButtonId group_ = 0;
};

}  // namespace

void Ribbon::showDown(const HostCalls& host, HostButtonId button, bool down) const {
    if (const auto show = host.api().set_button_down; show && button != 0)
        show(host.handle(), button, down);
}

void Ribbon::enable(const HostCalls& host, HostButtonId button, bool enabled) const {
    if (const auto enableButton = host.api().enable_button; enableButton && button != 0)
        enableButton(host.handle(), button, enabled);
}

void Ribbon::addToContextMenu(const HostCalls& host) const {
    const auto add = host.api().add_context_button;
    for (const HostButtonId button : {addPropertySet, editMany})
        if (add && button != 0)
            add(host.handle(), button);
}

Ribbon buildRibbon(const HostCalls& host, const std::u16string& imageFolder,
                   const PluginOptions& options, HostEventCallback clicked) {
    const HostApi& api = host.api();
    Builder builder(host, imageFolder, clicked);
    Ribbon ribbon;
    builder.openGroup(texts::kGroupKey);

    ribbon.edit = builder.addButton(api.create_sub_button, texts::kEditKey, texts::kEditHintKey);
    builder.setImages(ribbon.edit, texts::kEditImage, texts::kEditImage);
    ribbon.enable(host, ribbon.edit, true);

    ribbon.addPropertySet = builder.addToList(ribbon.edit, api.create_small_button,
                                              texts::kAddPropertySetKey, texts::kAddPropertySetKey);
    builder.setImages(ribbon.addPropertySet, texts::kManyObjectsImage,
                      texts::kManyObjectsSmallImage);
    ribbon.enable(host, ribbon.addPropertySet, true);

    ribbon.editMany =
        builder.addToList(ribbon.edit, api.create_small_button, texts::kEditManyKey, nullptr);
    builder.setImages(ribbon.editMany, texts::kManyObjectsImage, texts::kManyObjectsSmallImage);
    ribbon.enable(host, ribbon.editMany, true);

    ribbon.exportModels =
        builder.addButton(api.create_small_button, texts::kExportKey, texts::kExportHintKey);
    builder.setImages(ribbon.exportModels, texts::kExportImage, texts::kExportSmallImage);
    ribbon.enable(host, ribbon.exportModels, false);  // until a model is loaded

    ribbon.openRecent = builder.addButton(api.create_small_button, texts::kOpenRecentKey,
                                          texts::kOpenRecentHintKey);
    builder.setImages(ribbon.openRecent, texts::kOpenImage, texts::kOpenSmallImage);
    ribbon.enable(host, ribbon.openRecent, true);

    ribbon.options = builder.addButton(api.create_sub_button, texts::kOptionsKey, nullptr);
    builder.setImage(ribbon.options, texts::kOptionsImage);

    ribbon.ignoreEnumerationErrors = builder.addToList(ribbon.options, api.create_checkbox,
                                                       texts::kIgnoreEnumerationErrorsKey, nullptr);
    ribbon.showDown(host, ribbon.ignoreEnumerationErrors, options.ignoreEnumerationErrors);
    ribbon.eraseWhiteSigns =
        builder.addToList(ribbon.options, api.create_checkbox, texts::kEraseWhiteSignsKey, nullptr);
    ribbon.showDown(host, ribbon.eraseWhiteSigns, options.eraseWhiteSigns);
    return ribbon;
}
