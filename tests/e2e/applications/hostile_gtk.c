/* A program whose menus are everything that menus should not be. Every item that is chosen becomes the window title. */
#include <gtk/gtk.h>
#include <string.h>

static GtkWidget* window;
static GtkWidget* restless_menu;
static int ticks;

static void chosen(GtkMenuItem* item, gpointer data) {
    (void)data;
    const char* label = gtk_menu_item_get_label(item);
    char* title = g_strndup(label, 60);
    gtk_window_set_title(GTK_WINDOW(window), title);
    g_free(title);
}

static GtkWidget* append_item(GtkWidget* menu, const char* title) {
    GtkWidget* item = gtk_menu_item_new_with_label(title);
    g_signal_connect(item, "activate", G_CALLBACK(chosen), NULL);
    gtk_menu_shell_append(GTK_MENU_SHELL(menu), item);
    return item;
}

static GtkWidget* append_menu(GtkWidget* shell, const char* title) {
    GtkWidget* item = gtk_menu_item_new_with_label(title);
    GtkWidget* menu = gtk_menu_new();
    gtk_menu_item_set_submenu(GTK_MENU_ITEM(item), menu);
    gtk_menu_shell_append(GTK_MENU_SHELL(shell), item);
    return menu;
}

static void fill_crowd(GtkWidget* bar) {
    GtkWidget* menu = append_menu(bar, "Crowd");
    for (int index = 1; index <= 5000; ++index) {
        char title[32];
        g_snprintf(title, sizeof title, "Person %d", index);
        append_item(menu, title);
    }
}

static void fill_depth(GtkWidget* bar) {
    GtkWidget* menu = append_menu(bar, "Depth");
    for (int level = 1; level <= 12; ++level) {
        char title[32];
        g_snprintf(title, sizeof title, "Level %d", level);
        append_item(menu, "Stop here");
        menu = append_menu(menu, title);
    }
    append_item(menu, "Bottom");
}

static void fill_strange(GtkWidget* bar) {
    GtkWidget* menu = append_menu(bar, "Strange");
    char* long_title = g_strnfill(10000, 'x');
    append_item(menu, "Plain");
    append_item(menu, long_title);
    g_free(long_title);
    append_item(menu, "");
    append_item(menu, "-");
    append_item(menu, "שלום עולם");
    append_item(menu, "مرحبا بالعالم");
    append_item(menu, "👩‍👩‍👧‍👦 family 🇪🇺 flag");
    append_item(menu, "Ampersand & Sons");
    append_item(menu, "_Underscore & tab\there");
    append_item(menu, "Two\nlines");
    append_item(menu, "Bar|in|title");
    append_item(menu, "Twin");
    append_item(menu, "Twin");
    append_item(menu, "Other");
    append_item(menu, "Twin");
    append_item(menu, "   ");
    append_item(append_menu(menu, "Pair"), "First of the pair");
    append_item(menu, "Between");
    append_item(append_menu(menu, "Pair"), "Second of the pair");
    gtk_widget_set_sensitive(append_item(menu, "Never"), FALSE);
}

static gboolean refill_restless(gpointer data) {
    (void)data;
    GList* children = gtk_container_get_children(GTK_CONTAINER(restless_menu));
    for (GList* child = children; child; child = child->next)
        gtk_widget_destroy(GTK_WIDGET(child->data));
    g_list_free(children);
    ++ticks;
    for (int index = 0; index < 3 + ticks % 5; ++index) {
        char title[48];
        g_snprintf(title, sizeof title, "Item %d of round %d", index, ticks);
        append_item(restless_menu, title);
    }
    gtk_widget_show_all(restless_menu);
    return G_SOURCE_CONTINUE;
}

int main(int argc, char** argv) {
    gtk_init(&argc, &argv);
    window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
    GtkWidget* box = gtk_box_new(GTK_ORIENTATION_VERTICAL, 0);
    GtkWidget* bar = gtk_menu_bar_new();
    fill_crowd(bar);
    fill_depth(bar);
    fill_strange(bar);
    restless_menu = append_menu(bar, "Restless");
    append_menu(bar, "Empty");
    refill_restless(NULL);
    g_timeout_add(50, refill_restless, NULL);
    gtk_container_add(GTK_CONTAINER(window), box);
    gtk_box_pack_start(GTK_BOX(box), bar, FALSE, FALSE, 0);
    gtk_window_set_title(GTK_WINDOW(window), "Hostile");
    gtk_window_set_default_size(GTK_WINDOW(window), 500, 200);
    g_signal_connect(window, "destroy", G_CALLBACK(gtk_main_quit), NULL);
    gtk_widget_show_all(window);
    gtk_main();
    return 0;
}
