/* A main window with a menu bar, and a second window of the kind that it is told: dialog, sheet, utility, loose_utility,
   which belongs to no window, or desktop. */
#include <gtk/gtk.h>
#include <string.h>

static GtkWidget* main_window(void) {
    GtkWidget* window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
    GtkWidget* bar = gtk_menu_bar_new();
    GtkWidget* box = gtk_box_new(GTK_ORIENTATION_VERTICAL, 0);
    gtk_menu_shell_append(GTK_MENU_SHELL(bar), gtk_menu_item_new_with_label("File"));
    gtk_container_add(GTK_CONTAINER(window), box);
    gtk_box_pack_start(GTK_BOX(box), bar, FALSE, FALSE, 0);
    gtk_window_set_title(GTK_WINDOW(window), "Main");
    gtk_window_set_default_size(GTK_WINDOW(window), 400, 300);
    g_signal_connect(window, "destroy", G_CALLBACK(gtk_main_quit), NULL);
    return window;
}

int main(int argc, char** argv) {
    gtk_init(&argc, &argv);
    const char* kind = argc > 1 ? argv[1] : "";
    GtkWidget* main = main_window();
    gtk_widget_show_all(main);

    GtkWidget* second = gtk_window_new(GTK_WINDOW_TOPLEVEL);
    gtk_window_set_title(GTK_WINDOW(second), "Second");
    gtk_window_set_default_size(GTK_WINDOW(second), 300, 150);
    if (strcmp(kind, "desktop") == 0) {
        gtk_window_set_type_hint(GTK_WINDOW(second), GDK_WINDOW_TYPE_HINT_DESKTOP);
    } else if (strcmp(kind, "loose_utility") == 0) {
        gtk_window_set_type_hint(GTK_WINDOW(second), GDK_WINDOW_TYPE_HINT_UTILITY);
    } else {
        gtk_window_set_transient_for(GTK_WINDOW(second), GTK_WINDOW(main));
        gtk_window_set_modal(GTK_WINDOW(second), strcmp(kind, "sheet") == 0);
        gtk_window_set_type_hint(GTK_WINDOW(second),
            strcmp(kind, "utility") == 0 ? GDK_WINDOW_TYPE_HINT_UTILITY : GDK_WINDOW_TYPE_HINT_DIALOG);
    }
    gtk_widget_show_all(second);
    gtk_main();
    return 0;
}
