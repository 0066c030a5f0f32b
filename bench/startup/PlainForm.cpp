// The Dock tab from the toolkit's own controls, with nothing behind them: what the same picture costs without us. With
// the argument "reading" it first reads the seven settings, by the commands that the application reads them with.

#include <QtCore/QProcess>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSlider>
#include <QtWidgets/QTabWidget>

namespace {

QWidget* makeSpeedRow() {
  auto* row = new QWidget;
  auto* layout = new QHBoxLayout(row);
  auto* slider = new QSlider(Qt::Horizontal);
  slider->setTickPosition(QSlider::TicksBelow);
  layout->addWidget(slider);
  layout->addWidget(new QDoubleSpinBox);
  return row;
}

QFormLayout* addGroup(QLayout& page, const QString& title) {
  auto* group = new QGroupBox(title);
  page.addWidget(group);
  return new QFormLayout(group);
}

void addRow(QFormLayout& form, const QString& title, const QString& description, QWidget* control) {
  form.addRow(new QLabel(title), control);
  auto* text = new QLabel(description);
  text->setWordWrap(true);
  form.addRow(text);
}

QWidget* makePage() {
  const QString description = QStringLiteral("One line of text that tells what this setting does to the Dock");
  auto* page = new QWidget;
  auto* layout = new QVBoxLayout(page);
  QFormLayout* speeds = addGroup(*layout, QStringLiteral("Speed"));
  addRow(*speeds, QStringLiteral("Animation"), description, makeSpeedRow());
  addRow(*speeds, QStringLiteral("Delay"), description, makeSpeedRow());
  QFormLayout* switches = addGroup(*layout, QStringLiteral("Windows"));
  addRow(*switches, QStringLiteral("Minimize"), description, new QComboBox);
  for (const char* title : {"Scroll", "Dim", "Single", "Active"}) {
    addRow(*switches, QString::fromUtf8(title), description, new QCheckBox);
  }
  QFormLayout* buttons = addGroup(*layout, QString());
  buttons->addRow(new QPushButton(QStringLiteral("Reset to Defaults")), new QPushButton(QStringLiteral("Save")));
  return page;
}

void readSettings() {
  for (const char* key : {"autohide-time-modifier", "autohide-delay", "mineffect", "scroll-to-open", "showhidden",
                          "single-app", "static-only"}) {
    QProcess command;
    command.start(QStringLiteral("/bin/zsh"),
                  {QStringLiteral("-c"), QStringLiteral("defaults read com.apple.dock ") + QLatin1String(key)});
    command.waitForFinished();
  }
}

}  // namespace

int main(int argc, char** argv) {
  constexpr int width = 600;
  constexpr int height = 700;
  const QApplication application(argc, argv);
  if (QApplication::arguments().value(1) == QLatin1String("reading")) {
    readSettings();
  }
  QMainWindow window;
  for (const char* title : {"File", "Edit", "View", "Window", "Help"}) {
    window.menuBar()->addMenu(QString::fromUtf8(title));
  }
  auto* tabs = new QTabWidget;
  tabs->addTab(makePage(), QStringLiteral("Dock"));
  tabs->addTab(new QWidget, QStringLiteral("General"));
  window.setCentralWidget(tabs);
  window.resize(width, height);
  window.show();
  return QApplication::exec();
}
