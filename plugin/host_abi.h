/* The binary interface between the host and its plug-ins: records, function types and codes. Plain
 * C, so that it says nothing about either side's compiler; both sides include this file and share
 * nothing else.
 *
 * Text is UTF-16, zero-terminated, unless it is `char`, which is ASCII. Text and arrays that one
 * side hands over belong to it and are valid until the next call in either direction: copy at once.
 * Text pointers in records may be null, which means empty. Memory is never freed across the
 * boundary.
 *
 * Everything happens on the host's user-interface thread. Nothing may be thrown across. */
#pragma once

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
#define QUILLET_ABI_ASSERT(condition) static_assert(condition, #condition)
extern "C" {
#else
#include <stdbool.h>
#include <uchar.h>
#define QUILLET_ABI_ASSERT(condition) _Static_assert(condition, #condition)
#endif

typedef uintptr_t HostHandle;  /* the host as it names itself to this plug-in */
typedef uint64_t HostObjectId; /* an object of the host, a pseudo-object or a file; 0: none */
typedef uint64_t HostChangeId; /* a change of the property display; 0: none */
typedef int32_t HostButtonId;  /* an item of the ribbon; 0: none */

typedef void (*HostEventCallback)(void);
typedef bool (*HostMessageCallback)(void);

/* ---- objects ---- */

typedef struct HostObjectInfo {
    HostObjectId id;
    HostObjectId fileId; /* the IFC file that the object comes from */
    HostObjectId parentId;
    const char* guid; /* 22 characters; null for what has none */
    const char16_t* name;
    const char16_t* entityName; /* "IfcWall" */
    int32_t instanceNumber;     /* #n in the file; 0 for what stands in none */
    int32_t reserved;
} HostObjectInfo;

enum { kHostObjectInfoBytes = 56 };
QUILLET_ABI_ASSERT(sizeof(HostObjectInfo) == kHostObjectInfoBytes);
QUILLET_ABI_ASSERT(offsetof(HostObjectInfo, guid) == 24);
QUILLET_ABI_ASSERT(offsetof(HostObjectInfo, instanceNumber) == 48);

/* ---- properties ---- */

/* HostProperty.kind */
enum HostPropertyKind {
    kHostEmptySet = 0,     /* no property: the record stands for a set that has none */
    kHostSingleValue = 1,  /* IfcPropertySingleValue */
    kHostQuantity = 2,     /* one of the quantity entities */
    kHostOtherProperty = 3 /* enumerated, list, bounded, table, complex, reference: shown only */
};

/* HostProperty.valueType; the numbers of the edit log */
enum HostValueType { kHostText = 0, kHostReal = 1, kHostTruth = 2, kHostInteger = 3 };

/* HostProperty.state: what the pending edits say of the property; the numbers of the edit log */
enum HostPropertyState { kHostUnchanged = 0, kHostAdded = 1, kHostEdited = 2, kHostDeleted = 3 };

/* One row of an object's property display. */
typedef struct HostProperty {
    const char16_t* setName;
    const char16_t* setGuid; /* 22 characters */
    const char16_t*
        setEntityName; /* "IfcPropertySet", "IfcElementQuantity", "IfcDoorLiningProperties" ... */
    const char16_t* name;         /* empty for kHostEmptySet */
    const char16_t* initialName;  /* as it stands in the file, before a rename */
    const char16_t* value;        /* truth values are "1" and "0" */
    const char16_t* entityName;   /* value type, "IfcLabel" */
    const char16_t* quantityType; /* "IfcQuantityLength"; empty for a single value */
    const char16_t* prefix;       /* "KILO" or empty */
    const char16_t* unit;         /* "METRE" or empty */
    HostChangeId changeId;        /* of the last change of this row, 0 for none */
    int32_t kind;
    int32_t valueType;
    int32_t state;
    int32_t reserved;
} HostProperty;

enum { kHostPropertyBytes = 104 };
QUILLET_ABI_ASSERT(sizeof(HostProperty) == kHostPropertyBytes);
QUILLET_ABI_ASSERT(offsetof(HostProperty, name) == 24);
QUILLET_ABI_ASSERT(offsetof(HostProperty, changeId) == 80);
QUILLET_ABI_ASSERT(offsetof(HostProperty, kind) == 88);
QUILLET_ABI_ASSERT(offsetof(HostProperty, state) == 96);

/* The selector of get_object_properties2. */
enum HostPropertySelector { kHostOwnProperties = 0 };

/* HostPropertyRequest.action: what the display does. A set is meant where `propertyCount` is 0 or
 * the only record is of kind kHostEmptySet; a property of the set otherwise. */
enum HostDisplayAction {
    kHostAddToSet = 0,    /* shows a new property in a set that the file has */
    kHostPutSet = 1,      /* shows a set, new or back again, with the properties handed over; a set
                             that comes back with none handed over has those that it had */
    kHostPutProperty = 2, /* shows a property, new in a pending set or back again */
    kHostRemove = 3,      /* takes a property or a set off the display */
    kHostChange = 4       /* a property gets the name, value and unit of the record, found by its
                             present or initial name; a set gets the name `newSetName` */
};

/* First argument of add_del_or_change_property; the second points to `propertyCount` records, or is
 * null. */
typedef struct HostPropertyRequest {
    int32_t action;
    int32_t instanceNumber; /* of the object in its file */
    HostObjectId objectId;
    const char16_t* objectGuid;
    const char16_t* setName;      /* as it is displayed now */
    const char16_t* setGuid;      /* finds the set; an empty one leaves that to the name */
    const char16_t* newSetName;   /* of a rename, else null */
    const char16_t* propertyName; /* as it is displayed now, null for a set */
    HostChangeId previousChange;  /* what the last request for the item returned; an object's
                                     instance number when there was none yet, or 0 */
    int32_t propertyCount;
    int32_t reserved;
} HostPropertyRequest;

enum { kHostPropertyRequestBytes = 72 };
QUILLET_ABI_ASSERT(sizeof(HostPropertyRequest) == kHostPropertyRequestBytes);
QUILLET_ABI_ASSERT(offsetof(HostPropertyRequest, setName) == 24);
QUILLET_ABI_ASSERT(offsetof(HostPropertyRequest, previousChange) == 56);

/* What the user asked for in the property panel, with the selected object meant. */
enum HostChangeAction {
    kHostAskEditProperty = 0,
    kHostAskDeleteProperty = 1,
    kHostAskAddProperty = 2,
    kHostAskDeleteSet = 3,
    kHostAskRenameSet = 4
};

/* First argument of on_changing_property_or_set. */
typedef struct HostChangeRequest {
    int32_t action;   /* HostChangeAction */
    int32_t quantity; /* to add: 1 asks for a quantity, 0 for a single value */
    const char16_t* setName;
    const char16_t* setGuid;
    const char16_t* propertyName; /* null or empty for a set; to add: the row that was clicked */
} HostChangeRequest;

QUILLET_ABI_ASSERT(sizeof(HostChangeRequest) == 32);

/* ---- what a plug-in says about itself ---- */

typedef struct HostApiVersion {
    int32_t major;
    int32_t minor;
} HostApiVersion;

typedef struct HostPluginInfo {
    const char16_t* name;
    const char16_t* maker;
    const char16_t* webPage;
    const char16_t* email;
    const void* unused;         /* null */
    const char16_t* dataFolder; /* with a separator at its end */
} HostPluginInfo;

QUILLET_ABI_ASSERT(sizeof(HostPluginInfo) == 6 * sizeof(void*));

/* The code of on_undo_redo_action. */
enum HostUndoAction { kHostUndo = 0, kHostRedo = 1, kHostForget = 2 };

/* ---- windows that a host answers for the user ---- */

/* One named text of a window: of what it shows, or of what the user enters. */
typedef struct HostWindowField {
    const char* key;
    const char16_t* value;
} HostWindowField;

/* ---- what the host exports and plug-ins call ----
 *
 * X(name, result, arguments). Each takes the handle given to on_plugin_load first. Buffers may be
 * null with capacity 0 to ask for the count; otherwise at most `capacity` elements are stored. */

#define QUILLET_HOST_OBJECT_FUNCTIONS(X)                                                     \
    X(get_selected_id, HostObjectId, (HostHandle))                                           \
    X(get_all_objects_id, HostObjectId, (HostHandle))                                        \
    X(get_all_objects, int32_t, (HostHandle, HostObjectId * buffer, int32_t capacity))       \
    X(get_selected, int32_t, (HostHandle, HostObjectId * buffer, int32_t capacity))          \
    X(get_childs, int32_t,                                                                   \
      (HostHandle, HostObjectId parent, HostObjectId * buffer, int32_t capacity))            \
    X(get_object_state, int32_t, (HostHandle, HostObjectId))                                 \
    X(get_object_info, bool, (HostHandle, HostObjectId, HostObjectInfo * info))              \
    X(get_object_info2, bool,                                                                \
      (HostHandle, const HostObjectId* ids, int32_t count, HostObjectInfo* infos))           \
    X(get_object_properties2, int32_t,                                                       \
      (HostHandle, HostObjectId, int32_t selector, HostProperty * buffer, int32_t capacity)) \
    X(get_project, HostObjectId, (HostHandle))                                               \
    X(get_project_path, const char16_t*, (HostHandle, HostObjectId file))                    \
    X(get_loaded_ifc_path, const char16_t*, (HostHandle))                                    \
    X(get_loaded_ifc_files_count, int32_t, (HostHandle))                                     \
    X(calculate_object_id, HostObjectId, (HostHandle, const char* guid))                     \
    X(select, void, (HostHandle, HostObjectId))

#define QUILLET_HOST_EDIT_FUNCTIONS(X)                                       \
    X(register_undo_action, void, (HostHandle, const char16_t* displayText)) \
    X(need_save_ahx, void, (HostHandle, bool))                               \
    X(invalidate, void, (HostHandle))                                        \
    X(begin_read_ahx_v2, bool, (HostHandle, const char16_t* entryName))      \
    X(get_ahx_size_v2, int64_t, (HostHandle))                                \
    X(read_ahx_v2, int64_t, (HostHandle, void* buffer, int64_t size))        \
    X(begin_write_ahx_v2, bool, (HostHandle, const char16_t* entryName))     \
    X(write_ahx_v2, void, (HostHandle, const void* data, int64_t size))

#define QUILLET_HOST_DIALOG_FUNCTIONS(X)                                                         \
    X(get_language, const char16_t*, (HostHandle))                                               \
    X(load_texts, bool, (HostHandle, const char16_t* fileName))                                  \
    X(get_text, const char16_t*, (HostHandle, const char* key))                                  \
    X(message_box, int32_t,                                                                      \
      (HostHandle, const char16_t* caption, const char16_t* text, uint32_t flags))               \
    X(set_save_dialog_params, void,                                                              \
      (HostHandle, const char16_t* filterCaption, const char16_t* defaultName,                   \
       const char16_t* extension))                                                               \
    X(set_save_dialog_default_extension, void, (HostHandle, const char16_t* extension))          \
    X(save_dialog, bool, (HostHandle, bool severalFiles))                                        \
    X(get_save_dialog_name, const char16_t*, (HostHandle))                                       \
    X(show_progress_bar, void, (HostHandle, bool show, bool reserved, const char16_t* caption))  \
    X(update_progress_bar, void,                                                                 \
      (HostHandle, int32_t overallPercent, const char16_t* overallLabel, int32_t currentPercent, \
       const char16_t* currentLabel))

/* Images are paths. Creators return 0 when they make nothing. `clicked` is called when the item is
 * clicked; clicked_button then tells which item that was. */
#define QUILLET_HOST_RIBBON_FUNCTIONS(X)                                              \
    X(create_group, HostButtonId, (HostHandle, const char16_t* caption))              \
    X(create_small_button, HostButtonId,                                              \
      (HostHandle, HostButtonId group, const char16_t* text, const char16_t* hint,    \
       HostEventCallback clicked))                                                    \
    X(create_checkbox, HostButtonId,                                                  \
      (HostHandle, HostButtonId group, const char16_t* text, const char16_t* hint,    \
       HostEventCallback clicked))                                                    \
    X(create_sub_button, HostButtonId,                                                \
      (HostHandle, HostButtonId group, const char16_t* text, const char16_t* hint,    \
       HostEventCallback clicked))                                                    \
    X(add_button, void, (HostHandle, HostButtonId list, HostButtonId item))           \
    X(set_button_text, void,                                                          \
      (HostHandle, HostButtonId, const char16_t* text, const char16_t* hint))         \
    X(set_button_image, void, (HostHandle, HostButtonId, const char16_t* path))       \
    X(set_button_small_image, void, (HostHandle, HostButtonId, const char16_t* path)) \
    X(set_button_down, void, (HostHandle, HostButtonId, bool down))                   \
    X(enable_button, void, (HostHandle, HostButtonId, bool enabled))                  \
    X(clicked_button, HostButtonId, (HostHandle))                                     \
    X(add_context_button, void, (HostHandle, HostButtonId))                           \
    X(get_draw_object_id, HostObjectId, (HostHandle))

#define QUILLET_HOST_EVENT_FUNCTIONS(X)                                    \
    X(on_measure_change, void, (HostHandle, HostEventCallback))            \
    X(on_model_clear, void, (HostHandle, HostEventCallback))               \
    X(on_main_form_close, void, (HostHandle, HostEventCallback))           \
    X(on_selection_change, void, (HostHandle, HostEventCallback))          \
    X(on_hover, void, (HostHandle, HostEventCallback))                     \
    X(on_draw, void, (HostHandle, HostEventCallback))                      \
    X(on_draw_object_click, void, (HostHandle, HostEventCallback))         \
    X(on_context_menu, void, (HostHandle, HostEventCallback))              \
    X(on_gallery_item_context_menu, void, (HostHandle, HostEventCallback)) \
    X(on_tab_change, void, (HostHandle, HostEventCallback))                \
    X(on_tab_sheet_placement, void, (HostHandle, HostEventCallback))       \
    X(on_tab_sheet_change, void, (HostHandle, HostEventCallback))          \
    X(on_plugin_message, void, (HostHandle, HostMessageCallback))          \
    X(on_property_change, void, (HostHandle, HostEventCallback))           \
    X(on_object_list_changed, void, (HostHandle, HostEventCallback))       \
    X(on_model_load, void, (HostHandle, HostEventCallback))                \
    X(on_save_ahx, void, (HostHandle, HostEventCallback))

/* Looked up in the second step.
 *
 * answer_window: only a host that works without a user has it. It answers a window of the plug-in
 * in the user's place: `shown` is what the window would show, its end marked by a null key. Returns
 * what the user enters, ended the same way, or null when the window is cancelled. */
#define QUILLET_HOST_LATE_FUNCTIONS(X)                               \
    X(add_del_or_change_property, HostChangeId,                      \
      (HostHandle, const HostPropertyRequest*, const HostProperty*)) \
    X(answer_window, const HostWindowField*,                         \
      (HostHandle, const char* window, const HostWindowField* shown))

#define QUILLET_HOST_FUNCTIONS(X)    \
    QUILLET_HOST_OBJECT_FUNCTIONS(X) \
    QUILLET_HOST_EDIT_FUNCTIONS(X)   \
    QUILLET_HOST_DIALOG_FUNCTIONS(X) \
    QUILLET_HOST_RIBBON_FUNCTIONS(X) \
    QUILLET_HOST_EVENT_FUNCTIONS(X)  \
    QUILLET_HOST_LATE_FUNCTIONS(X)

/* ---- what a plug-in exports ----
 *
 * Host values whose meaning plug-ins do not need are uintptr_t or int32_t without a name. */

#define QUILLET_PLUGIN_EXPORTS(X)                                               \
    X(get_api_verion, int32_t, (uintptr_t, HostApiVersion*)) /* sic */          \
    X(get_plugin_info, void, (HostPluginInfo*))                                 \
    X(on_plugin_load, void, (HostHandle, uint16_t, uintptr_t))                  \
    X(on_plugin_unload, void, (void))                                           \
    X(on_gui_colors_change, void, (uintptr_t))                                  \
    X(on_drag_enter, int32_t, (int32_t, int32_t, int32_t))                      \
    X(on_drag_over, int32_t, (int32_t, int32_t, int32_t))                       \
    X(on_drop, int32_t, (uintptr_t, int32_t, int32_t, int32_t))                 \
    X(on_model_load_v2, void, (uint8_t, uintptr_t, uintptr_t))                  \
    X(on_model_save_v2, void, (uintptr_t, uintptr_t))                           \
    X(on_changing_property_or_set, void, (const HostChangeRequest*, uintptr_t)) \
    X(on_undo_redo_action, void, (uintptr_t, int32_t))

#ifdef __cplusplus
}
#endif
