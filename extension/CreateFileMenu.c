#include "CreateFileMenu.h"

static const char menu_group[] = "Menu";
static const char separator[] = "-";

static void type_free(gpointer type) {
    CreateFileType* const freed = type;
    if (freed != NULL) {
        g_free(freed->id);
        g_free(freed->name);
        g_free(freed->icon);
        g_free(freed);
    }
}

void create_file_menu_free(CreateFileMenu* menu) {
    g_free(menu->title);
    g_free(menu->program);
    g_ptr_array_unref(menu->types);
    g_free(menu);
}

static CreateFileType* read_type(GKeyFile* file, const char* id) {
    g_autofree char* group = g_strconcat("Type ", id, NULL);
    CreateFileType* const type = g_new0(CreateFileType, 1);
    type->id = g_strdup(id);
    type->name = g_key_file_get_string(file, group, "Name", NULL);
    type->icon = g_key_file_get_string(file, group, "Icon", NULL);
    return type;
}

/// False where the description is not as it should be.
static gboolean read_types(GKeyFile* file, GPtrArray* types) {
    g_auto(GStrv) ids = g_key_file_get_string_list(file, menu_group, "Types", NULL, NULL);
    if (ids == NULL) {
        return FALSE;
    }
    for (char** id = ids; *id != NULL; ++id) {
        if (g_str_equal(*id, separator)) {
            g_ptr_array_add(types, NULL);
            continue;
        }
        CreateFileType* const type = read_type(file, *id);
        g_ptr_array_add(types, type);
        if (type->name == NULL || type->icon == NULL) {
            return FALSE;
        }
    }
    return TRUE;
}

static char* read_program(GKeyFile* file) {
    g_autofree char* uri = g_key_file_get_string(file, menu_group, "Program", NULL);
    return uri == NULL ? NULL : g_filename_from_uri(uri, NULL, NULL);
}

CreateFileMenu* create_file_menu_read(const char* file_manager) {
    g_autofree char* path =
        g_build_filename(g_get_user_data_dir(), "blankwell-plus", "menus", file_manager, NULL);
    g_autoptr(GKeyFile) file = g_key_file_new();
    if (!g_key_file_load_from_file(file, path, G_KEY_FILE_NONE, NULL)) {
        return NULL;
    }
    g_autoptr(CreateFileMenu) menu = g_new0(CreateFileMenu, 1);
    menu->types = g_ptr_array_new_with_free_func(type_free);
    menu->title = g_key_file_get_string(file, menu_group, "Title", NULL);
    menu->program = read_program(file);
    if (menu->title == NULL || menu->program == NULL || !read_types(file, menu->types)) {
        g_warning("The description of a menu in \"%s\" cannot be understood.", path);
        return NULL;
    }
    return g_steal_pointer(&menu);
}

void create_file_request(const char* program, const char* type_id, const char* path) {
    const char* const arguments[] = {program, "open", type_id, "--", path, NULL};
    g_autoptr(GError) error = NULL;
    if (!g_spawn_async(NULL, (char**)arguments, NULL, G_SPAWN_DEFAULT, NULL, NULL, NULL, &error)) {
        g_warning("A file could not be asked for: %s", error->message);
    }
}
