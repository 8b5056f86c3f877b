// GTK 4's print dialog for a queue, with the page of the printer's own options in front.
//   gtk4_dialog QUEUE

#include <gtk/gtk.h>
#include <gtk/gtkunixprint.h>

#include <cstring>

namespace {

// Empty until the options are known.
void BringPageToFront(GtkWidget *widget) {
  if (GTK_IS_NOTEBOOK(widget)) {
    auto *notebook = GTK_NOTEBOOK(widget);
    for (int i = 0; i < gtk_notebook_get_n_pages(notebook); ++i) {
      GtkWidget *page = gtk_notebook_get_nth_page(notebook, i);
      if (strcmp(gtk_notebook_get_tab_label_text(notebook, page), "Advanced") == 0) {
        gtk_notebook_set_current_page(notebook, i);
      }
    }
    return;
  }
  for (GtkWidget *child = gtk_widget_get_first_child(widget); child != nullptr;
       child = gtk_widget_get_next_sibling(child)) {
    BringPageToFront(child);
  }
}

}  // namespace

int main(int, char **argv) {
  gtk_init();
  GtkWidget *dialog = gtk_print_unix_dialog_new("Print", nullptr);
  GtkPrintSettings *settings = gtk_print_settings_new();
  gtk_print_settings_set_printer(settings, argv[1]);
  gtk_print_unix_dialog_set_settings(GTK_PRINT_UNIX_DIALOG(dialog), settings);
  BringPageToFront(dialog);
  gtk_window_present(GTK_WINDOW(dialog));
  GMainLoop *loop = g_main_loop_new(nullptr, FALSE);
  g_main_loop_run(loop);
}
