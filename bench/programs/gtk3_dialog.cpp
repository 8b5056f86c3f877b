// GTK 3's print dialog for a queue, with the page of the printer's own options in front.
//   gtk3_dialog QUEUE

#include <gtk/gtk.h>
#include <gtk/gtkunixprint.h>

#include <cstring>

namespace {

// The page comes to sight when the options are known.
void BringToFront(GtkWidget *page, gpointer notebook) {
  gtk_notebook_set_current_page(GTK_NOTEBOOK(notebook),
                                gtk_notebook_page_num(GTK_NOTEBOOK(notebook), page));
}

void FindPage(GtkWidget *widget, gpointer) {
  if (GTK_IS_NOTEBOOK(widget)) {
    auto *notebook = GTK_NOTEBOOK(widget);
    for (int i = 0; i < gtk_notebook_get_n_pages(notebook); ++i) {
      GtkWidget *page = gtk_notebook_get_nth_page(notebook, i);
      if (strcmp(gtk_notebook_get_tab_label_text(notebook, page), "Advanced") == 0) {
        g_signal_connect_after(page, "show", G_CALLBACK(BringToFront), notebook);
      }
    }
  } else if (GTK_IS_CONTAINER(widget)) {
    gtk_container_forall(GTK_CONTAINER(widget), FindPage, nullptr);
  }
}

}  // namespace

int main(int argc, char **argv) {
  gtk_init(&argc, &argv);
  GtkWidget *dialog = gtk_print_unix_dialog_new("Print", nullptr);
  GtkPrintSettings *settings = gtk_print_settings_new();
  gtk_print_settings_set_printer(settings, argv[1]);
  gtk_print_unix_dialog_set_settings(GTK_PRINT_UNIX_DIALOG(dialog), settings);
  FindPage(dialog, nullptr);
  gtk_widget_show(dialog);
  gtk_main();
}
