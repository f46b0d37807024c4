// The extension itself, the same for every file manager. It is included once, after the file
// manager's own interface and these:
//
// - FILE_MANAGER: its id;
// - FM_TYPE(Name), FM_FUNCTION(name): what the types and functions of its interface are called;
// - FM_MENU_PROVIDER: the type of providers of menus, whose table is a FmMenuProviderTable;
// - FM_LOCATION_WIDGET_PROVIDER, where it asks for a widget for each location that it shows:
//   the type of providers of such, whose table is a FmLocationWidgetProviderTable. It tells its
//   providers then of the window, too.
#include "CreateFileMenu.h"

#include <gio/gio.h>
#include <gmodule.h>

#include <string.h>

#ifdef FM_LOCATION_WIDGET_PROVIDER
#define FM_WINDOW_PARAMETER GtkWidget *window,
#else
#define FM_WINDOW_PARAMETER
#endif

typedef FM_TYPE(FileInfo) FmFileInfo;
typedef FM_TYPE(Menu) FmMenu;
typedef FM_TYPE(MenuItem) FmMenuItem;
typedef FM_TYPE(MenuProvider) FmMenuProvider;

typedef struct {
    GObject parent;
} BlankwellPlusExtension;

typedef struct {
    GObjectClass parent;
} BlankwellPlusExtensionClass;

static void menu_provider_init(FmMenuProviderTable* table);

#ifdef FM_LOCATION_WIDGET_PROVIDER
static void location_widget_provider_init(FmLocationWidgetProviderTable* table);
#define FM_IMPLEMENT_LOCATION_WIDGET_PROVIDER                                                      \
    G_IMPLEMENT_INTERFACE_DYNAMIC(FM_LOCATION_WIDGET_PROVIDER, location_widget_provider_init)
#else
#define FM_IMPLEMENT_LOCATION_WIDGET_PROVIDER
#endif

GType blankwell_plus_extension_get_type(void);

G_DEFINE_DYNAMIC_TYPE_EXTENDED(BlankwellPlusExtension, blankwell_plus_extension, G_TYPE_OBJECT, 0,
                               G_IMPLEMENT_INTERFACE_DYNAMIC(FM_MENU_PROVIDER, menu_provider_init)
                                   FM_IMPLEMENT_LOCATION_WIDGET_PROVIDER)

static void blankwell_plus_extension_init(BlankwellPlusExtension* extension) {
    (void)extension;
}

static void blankwell_plus_extension_class_init(BlankwellPlusExtensionClass* table) {
    (void)table;
}

static void blankwell_plus_extension_class_finalize(BlankwellPlusExtensionClass* table) {
    (void)table;
}

/// The path of the folder that `file` is; NULL where it is none on a disk.
static char* path_of_folder(FmFileInfo* file) {
    g_autoptr(GFile) location = FM_FUNCTION(file_info_get_location)(file);
    if (location == NULL || !FM_FUNCTION(file_info_is_directory)(file)) {
        return NULL;
    }
    if (g_file_has_uri_scheme(location, "x-" FILE_MANAGER "-desktop")) {
        return g_strdup(g_get_user_special_dir(G_USER_DIRECTORY_DESKTOP));
    }
    return g_file_get_path(location);
}

static void create(FmMenuItem* item, gpointer type_id) {
    create_file_request(g_object_get_data(G_OBJECT(item), "program"), type_id,
                        g_object_get_data(G_OBJECT(item), "folder"));
}

static void free_closure_data(gpointer data, GClosure* closure) {
    (void)closure;
    g_free(data);
}

static FmMenuItem* new_type_item(const CreateFileMenu* menu, const CreateFileType* type,
                                 const char* place, const char* folder) {
    g_autofree char* name = g_strdup_printf("BlankwellPlus::%s::%s", place, type->id);
    FmMenuItem* const item = FM_FUNCTION(menu_item_new)(name, type->name, "", type->icon);
    g_object_set_data_full(G_OBJECT(item), "program", g_strdup(menu->program), g_free);
    g_object_set_data_full(G_OBJECT(item), "folder", g_strdup(folder), g_free);
    g_signal_connect_data(item, "activate", G_CALLBACK(create), g_strdup(type->id),
                          free_closure_data, 0);
    return item;
}

static void append(FmMenu* submenu, FmMenuItem* item) {
    FM_FUNCTION(menu_append_item)(submenu, item);
    g_object_unref(item);
}

/// A list of the one item that opens the submenu, or of none. `place` tells the items apart that
/// stand in one menu.
static GList* new_items(const char* place, FmFileInfo* file) {
    g_autofree char* folder = path_of_folder(file);
    g_autoptr(CreateFileMenu) menu = folder == NULL ? NULL : create_file_menu_read(FILE_MANAGER);
    if (menu == NULL) {
        return NULL;
    }
    g_autofree char* name = g_strdup_printf("BlankwellPlus::%s", place);
    FmMenuItem* const title = FM_FUNCTION(menu_item_new)(name, menu->title, "", "document-new");
    FmMenu* const submenu = FM_FUNCTION(menu_new)();
    for (guint i = 0; i < menu->types->len; ++i) {
        const CreateFileType* const type = g_ptr_array_index(menu->types, i);
        if (type != NULL) {
            append(submenu, new_type_item(menu, type, place, folder));
        } else {
#ifdef FM_HAS_SEPARATORS
            g_autofree char* line = g_strdup_printf("%s::%u", name, i);
            append(submenu, FM_FUNCTION(menu_item_new_separator)(line));
#endif
        }
    }
    FM_FUNCTION(menu_item_set_submenu)(title, submenu);
    g_object_unref(submenu);
    return g_list_append(NULL, title);
}

static GList* get_file_items(FmMenuProvider* provider, FM_WINDOW_PARAMETER GList* files) {
    (void)provider;
#ifdef FM_LOCATION_WIDGET_PROVIDER
    (void)window;
#endif
    const gboolean is_one = files != NULL && files->next == NULL;
    return is_one ? new_items("folder", files->data) : NULL;
}

static GList* get_background_items(FmMenuProvider* provider,
                                   FM_WINDOW_PARAMETER FmFileInfo* folder) {
    (void)provider;
#ifdef FM_LOCATION_WIDGET_PROVIDER
    (void)window;
#endif
    return new_items("here", folder);
}

static void menu_provider_init(FmMenuProviderTable* table) {
    table->get_file_items = get_file_items;
    table->get_background_items = get_background_items;
}

#ifdef FM_LOCATION_WIDGET_PROVIDER

/// Writes the location that `mark` stands for on its window, where other programs can read it.
static void publish(GtkWidget* mark) {
    GdkWindow* const window = gtk_widget_get_window(gtk_widget_get_toplevel(mark));
    const char* const uri = g_object_get_data(G_OBJECT(mark), "location");
    if (window != NULL) {
        gdk_property_change(window, gdk_atom_intern_static_string("_BLANKWELL_PLUS_LOCATION"),
                            gdk_atom_intern_static_string("UTF8_STRING"), 8, GDK_PROP_MODE_REPLACE,
                            (const guchar*)uri, (int)strlen(uri));
    }
}

/// Of two locations side by side, the one that has the keyboard is in front.
static void keyboard_moved(GtkWidget* mark, GtkWidget* focused) {
    GtkWidget* const tabs = gtk_widget_get_ancestor(mark, GTK_TYPE_NOTEBOOK);
    if (tabs != NULL && focused != NULL && gtk_widget_get_mapped(mark) &&
        gtk_widget_is_ancestor(focused, tabs)) {
        publish(mark);
    }
}

static void watch_keyboard(GtkWidget* mark) {
    g_signal_connect_object(gtk_widget_get_toplevel(mark), "set-focus", G_CALLBACK(keyboard_moved),
                            mark, G_CONNECT_SWAPPED);
}

/// Caja leaves room around what extensions show there, which is nothing here.
static void take_no_room(GtkWidget* mark) {
    GtkContainer* const box = GTK_CONTAINER(gtk_widget_get_parent(mark));
    g_autoptr(GList) widgets = gtk_container_get_children(box);
    if (widgets->next == NULL) {
        gtk_container_set_border_width(box, 0);
    }
}

static void mapped(GtkWidget* mark, gpointer unused) {
    (void)unused;
    publish(mark);
    take_no_room(mark);
    if (g_object_get_data(G_OBJECT(mark), "watches") == NULL) {
        g_object_set_data(G_OBJECT(mark), "watches", mark);
        watch_keyboard(mark);
    }
}

/// A widget of no size: it is shown with the tab that shows the location.
static GtkWidget* get_widget(FM_TYPE(LocationWidgetProvider) * provider, const char* uri,
                             GtkWidget* window) {
    (void)provider;
    (void)window;
    GtkWidget* const mark = gtk_box_new(GTK_ORIENTATION_HORIZONTAL, 0);
    g_object_set_data_full(G_OBJECT(mark), "location", g_strdup(uri), g_free);
    g_signal_connect(mark, "map", G_CALLBACK(mapped), NULL);
    gtk_widget_show(mark);
    return mark;
}

static void location_widget_provider_init(FmLocationWidgetProviderTable* table) {
    table->get_widget = get_widget;
}

#endif

G_MODULE_EXPORT void FM_FUNCTION(module_initialize)(GTypeModule* module) {
    blankwell_plus_extension_register_type(module);
}

G_MODULE_EXPORT void FM_FUNCTION(module_shutdown)(void) {}

G_MODULE_EXPORT void FM_FUNCTION(module_list_types)(const GType** types, int* count) {
    static GType type;
    type = blankwell_plus_extension_get_type();
    *types = &type;
    *count = 1;
}
