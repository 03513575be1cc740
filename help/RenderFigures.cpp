// Turns vector figures of the help into the pictures that its pages show:
//   orvane_render_figure FIGURE.svg PICTURE.png [FIGURE.svg PICTURE.png]...
// Two dots of the picture are one pixel of the page, so that it is crisp on fine screens and when enlarged.
//
// Or a vector icon into one of the sizes that a desktop asks for, with nothing behind it:
//   orvane_render_figure ICON.svg PICTURE.png SIDE
#include <QGuiApplication>
#include <QImage>
#include <QLoggingCategory>
#include <QPainter>
#include <QSvgRenderer>
#include <iostream>

namespace {

constexpr int DotsPerPixel = 2;
constexpr double PixelsPerMetre = 96 / 0.0254;
constexpr int SmallestFile = 0;  // PNG "quality": the strongest compression

bool somethingIsNotDrawn = false;

// The renderer leaves out what it does not know and only warns; such a figure must not go unseen.
void HearWarnings(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  const bool isAboutFigures = qstrncmp(context.category, "qt.svg", 6) == 0;
  if (isAboutFigures || type == QtCriticalMsg || type == QtFatalMsg) std::cerr << text.toStdString() << '\n';
  somethingIsNotDrawn = somethingIsNotDrawn || isAboutFigures;
}

// An empty image in the size of a page's figure, on the paper of the pages.
QImage PaperFor(QSize size) {
  QImage image(size * DotsPerPixel, QImage::Format_RGB32);
  image.fill(Qt::white);
  image.setDotsPerMeterX(qRound(DotsPerPixel * PixelsPerMetre));
  image.setDotsPerMeterY(qRound(DotsPerPixel * PixelsPerMetre));
  return image;
}

QImage EmptyIcon(int side) {
  QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  return image;
}

// `side` is that of an icon, 0 for a figure.
int Render(const QString& figure, const QString& picture, int side) {
  QSvgRenderer renderer(figure);
  if (!renderer.isValid() || somethingIsNotDrawn) {
    std::cerr << figure.toStdString() << ": it cannot be drawn whole\n";
    return 1;
  }
  QImage image = side > 0 ? EmptyIcon(side) : PaperFor(renderer.defaultSize());
  QPainter painter(&image);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                         QPainter::SmoothPixmapTransform);
  renderer.render(&painter);
  painter.end();
  if (!image.save(picture, "PNG", SmallestFile) || somethingIsNotDrawn) {
    std::cerr << picture.toStdString() << ": it cannot be written\n";
    return 1;
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  // Neither the screen of whoever builds nor its settings may change a picture.
  for (const char* setting : {"QT_SCALE_FACTOR", "QT_SCREEN_SCALE_FACTORS", "QT_FONT_DPI"})
    qunsetenv(setting);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler(HearWarnings);
  const QGuiApplication application(argc, argv);
  const QStringList arguments = QGuiApplication::arguments();
  const int side = arguments.size() == 4 ? arguments[3].toInt() : 0;
  if (side > 0) return Render(arguments[1], arguments[2], side);
  if (arguments.size() < 3 || arguments.size() % 2 == 0) {
    std::cerr << "usage: orvane_render_figure FIGURE.svg PICTURE.png [FIGURE.svg PICTURE.png]...\n"
                 "       orvane_render_figure ICON.svg PICTURE.png SIDE\n";
    return 2;
  }
  for (qsizetype at = 1; at < arguments.size(); at += 2) {
    if (Render(arguments[at], arguments[at + 1], 0) != 0) return 1;
  }
  return 0;
}
