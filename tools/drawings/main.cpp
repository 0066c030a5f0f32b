// Records an SVG drawing as the toolkit's own picture, in a square of side one. A program that plays it reads no SVG
// when it starts, and needs no library for that. usage: record-drawing FILE.svg PICTURE

#include <QtGui/QPainter>
#include <QtGui/QPicture>
#include <QtSvg/QSvgRenderer>
#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("usage: record-drawing FILE.svg PICTURE\n", stderr);
    return EXIT_FAILURE;
  }
  QSvgRenderer renderer(QString::fromLocal8Bit(argv[1]));
  if (!renderer.isValid()) {
    std::fprintf(stderr, "record-drawing: %s is no drawing\n", argv[1]);
    return EXIT_FAILURE;
  }
  QPicture picture;
  QPainter painter(&picture);
  renderer.render(&painter, QRectF(0, 0, 1, 1));
  painter.end();
  if (!picture.save(QString::fromLocal8Bit(argv[2]))) {
    std::fprintf(stderr, "record-drawing: %s cannot be written\n", argv[2]);
    return EXIT_FAILURE;
  }
  return EXIT_SUCCESS;
}
