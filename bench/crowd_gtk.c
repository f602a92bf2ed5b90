/* A program with one menu of as many items as told. Usage: crowd_gtk ITEMS. */
#include <gtk/gtk.h>
#include <stdlib.h>

static GtkWidget* menu_of(int items) {
    GtkWidget* menu = gtk_menu_new();
    for (int index = 1; index <= items; ++index) {
        char title[32];
        g_snprintf(title, sizeof title, "Person %d", index);
        gtk_menu_shell_append(GTK_MENU_SHELL(menu), gtk_menu_item_new_with_label(title));
    }
    return menu;
}

int main(int argc, char** argv) {
    gtk_init(&argc, &argv);
    GtkWidget* title = gtk_menu_item_new_with_label("Crowd");
    gtk_menu_item_set_submenu(GTK_MENU_ITEM(title), menu_of(argc > 1 ? atoi(argv[1]) : 0));
    GtkWidget* bar = gtk_menu_bar_new();
    gtk_menu_shell_append(GTK_MENU_SHELL(bar), title);
    GtkWidget* box = gtk_box_new(GTK_ORIENTATION_VERTICAL, 0);
    gtk_box_pack_start(GTK_BOX(box), bar, FALSE, FALSE, 0);
    GtkWidget* window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
    gtk_container_add(GTK_CONTAINER(window), box);
    gtk_window_set_title(GTK_WINDOW(window), "Crowd");
    gtk_window_set_default_size(GTK_WINDOW(window), 500, 200);
    g_signal_connect(window, "destroy", G_CALLBACK(gtk_main_quit), NULL);
    gtk_widget_show_all(window);
    gtk_main();
    return 0;
}
