#pragma once

#include <glib.h>

/// The menu "Create File" as the application describes it for a file manager. The extension knows
/// nothing else of the application: neither its settings nor its types.
typedef struct {
    char* title;
    /// The program that takes the requests.
    char* program;
    /// `CreateFileType`s from top to bottom; NULL between the groups.
    GPtrArray* types;
} CreateFileMenu;

typedef struct {
    char* id;
    char* name;
    /// Of the icon theme.
    char* icon;
} CreateFileType;

/// Reads the description for the file manager with this id. NULL where there is none, which means
/// that the user has no menu there, and where it cannot be understood. To be freed.
CreateFileMenu* create_file_menu_read(const char* file_manager);

void create_file_menu_free(CreateFileMenu* menu);

/// Asks `program` for a file of a type in the folder `path`; returns at once.
void create_file_request(const char* program, const char* type_id, const char* path);

G_DEFINE_AUTOPTR_CLEANUP_FUNC(CreateFileMenu, create_file_menu_free)
