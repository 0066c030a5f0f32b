// The least that the toolkit can show: what a program's start is measured against.

#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

int main(int argc, char** argv) {
  constexpr int width = 600;
  constexpr int height = 700;
  const QApplication application(argc, argv);
  QWidget window;
  window.resize(width, height);
  window.show();
  return QApplication::exec();
}
