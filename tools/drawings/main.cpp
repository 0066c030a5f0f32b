// Makes of SVG drawings what a program shows at its start without reading SVG, for which it needs no library then.
//
// usage: record-drawing picture FILE.svg OUTPUT        the toolkit's own picture, in a square of side one
//        record-drawing pixels SIDE FILE.svg OUTPUT    as the toolkit paints, ARGB in the byte order of this machine
//        record-drawing outlines OUTPUT.cpp FILE.svg ...   what each fills, as outlines(), by the names of the files

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QPicture>
#include <QtSvg/QSvgRenderer>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string>
#include <vector>

#include "tools/drawings/Outlines.h"

namespace {

[[noreturn]] void fail(const QString& message) {
  std::fprintf(stderr, "record-drawing: %s\n", qPrintable(message));
  std::exit(EXIT_FAILURE);
}

void draw(const QString& file, QPaintDevice& device, double side) {
  QSvgRenderer renderer(file);
  if (!renderer.isValid()) {
    fail(file + " is no drawing");
  }
  QPainter painter(&device);
  renderer.render(&painter, QRectF(0, 0, side, side));
}

void write(const QString& path, const QByteArray& bytes) {
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
    fail(path + " cannot be written");
  }
}

void recordPicture(const QString& drawing, const QString& output) {
  QPicture picture;
  draw(drawing, picture, 1);
  if (!picture.save(output)) {
    fail(output + " cannot be written");
  }
}

void recordPixels(int side, const QString& drawing, const QString& output) {
  QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  draw(drawing, image, side);
  write(output, QByteArray(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes()));
}

void recordOutlines(const QString& output, std::span<const QString> drawings) {
  drawings::Outlines outlines;
  for (const QString& drawing : drawings) {
    drawings::OutlineDevice device;
    draw(drawing, device, drawings::OutlineDevice::side);
    outlines.add(QFileInfo(drawing).completeBaseName(), device.paths());
  }
  write(output, outlines.source());
}

}  // namespace

int main(int argc, char** argv) {
  std::vector<QString> words;
  for (const char* word : std::span(argv, static_cast<std::size_t>(argc)).subspan(1)) {
    words.push_back(QString::fromLocal8Bit(word));
  }
  if (words.size() == 3 && words[0] == "picture") {
    recordPicture(words[1], words[2]);
  } else if (words.size() == 4 && words[0] == "pixels" && words[1].toInt() > 0) {
    recordPixels(words[1].toInt(), words[2], words[3]);
  } else if (words.size() > 2 && words[0] == "outlines") {
    recordOutlines(words[1], std::span(words).subspan(2));
  } else {
    fail("see the beginning of its source for its usage");
  }
  return EXIT_SUCCESS;
}
