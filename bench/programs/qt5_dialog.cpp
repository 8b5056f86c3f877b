// Qt 5's print dialog for a queue.
//   qt5_dialog QUEUE

#include <QApplication>
#include <QPrintDialog>
#include <QPrinter>

int main(int argc, char **argv) {
  const QApplication application(argc, argv);
  QPrinter printer;
  printer.setPrinterName(QString::fromLocal8Bit(argv[1]));
  QPrintDialog dialog(&printer);
  return dialog.exec();
}
