/* Two windows in one process, each with a menu bar of its own. Choosing an item renames its window. */
#include <gtk/gtk.h>

static void rename_window(GtkMenuItem* item, gpointer window) {
    gtk_window_set_title(GTK_WINDOW(window), gtk_menu_item_get_label(item));
}

static void open_window(const char* name, const char* first_menu, const char* first_item, const char* second_menu,
    const char* second_item) {
    GtkWidget* window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
    GtkWidget* box = gtk_box_new(GTK_ORIENTATION_VERTICAL, 0);
    GtkWidget* bar = gtk_menu_bar_new();
    const char* names[2][2] = {{first_menu, first_item}, {second_menu, second_item}};
    for (int index = 0; index < 2; ++index) {
        GtkWidget* title = gtk_menu_item_new_with_label(names[index][0]);
        GtkWidget* menu = gtk_menu_new();
        GtkWidget* item = gtk_menu_item_new_with_label(names[index][1]);
        g_signal_connect(item, "activate", G_CALLBACK(rename_window), window);
        gtk_menu_shell_append(GTK_MENU_SHELL(menu), item);
        gtk_menu_item_set_submenu(GTK_MENU_ITEM(title), menu);
        gtk_menu_shell_append(GTK_MENU_SHELL(bar), title);
    }
    gtk_container_add(GTK_CONTAINER(window), box);
    gtk_box_pack_start(GTK_BOX(box), bar, FALSE, FALSE, 0);
    gtk_window_set_title(GTK_WINDOW(window), name);
    gtk_window_set_default_size(GTK_WINDOW(window), 300, 200);
    g_signal_connect(window, "destroy", G_CALLBACK(gtk_main_quit), NULL);
    gtk_widget_show_all(window);
}

int main(int argc, char** argv) {
    gtk_init(&argc, &argv);
    open_window("Kitchen", "Cook", "Boil", "Serve", "Plate");
    open_window("Garden", "Plant", "Sow", "Harvest", "Pick");
    gtk_main();
    return 0;
}
