#include "editing/ToolPicture.h"

#include <QPainter>

#include "editing/ToolGlyphs.h"
#include "platform/qt/MixedColor.h"

namespace {

// A raised button is lit from above; a pressed one is darker and has a frame in the highlight colour.
QColor DrawButton(QPainter& painter, bool pressed, const QPalette& palette) {
  const QColor face = palette.color(QPalette::Button);
  const QColor text = palette.color(QPalette::ButtonText);
  const QColor ground = pressed ? MixedColor(face, text, 0.16F) : face;
  const float shine = face.lightness() > 128 ? 0.35F : 0.10F;
  QLinearGradient light(0, 0, 0, ToolPictureSize);
  light.setColorAt(0, pressed ? MixedColor(ground, Qt::black, 0.10F) : MixedColor(ground, Qt::white, shine));
  light.setColorAt(pressed ? 0.25 : 1, pressed ? ground : MixedColor(ground, Qt::black, 0.04F));
  painter.setPen(QPen(pressed ? AccentOn(face) : MixedColor(face, text, 0.45F), pressed ? 1.5 : 1));
  painter.setBrush(light);
  const qreal inset = pressed ? 0.75 : 0.5;
  painter.drawRoundedRect(
      QRectF(0, 0, ToolPictureSize, ToolPictureSize).adjusted(inset, inset, -inset, -inset), 4, 4);
  return ground;
}

}  // namespace

QPixmap ToolPicture(int tool, bool pressed, qreal devicePixelRatio, const QPalette& palette) {
  QPixmap picture((QSizeF(ToolPictureSize, ToolPictureSize) * devicePixelRatio).toSize());
  picture.setDevicePixelRatio(devicePixelRatio);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor ground = DrawButton(painter, pressed, palette);
  if (pressed) painter.translate(0.5, 0.5);
  DrawToolGlyph(painter, tool,
                {.Ink = palette.color(QPalette::ButtonText), .Accent = AccentOn(ground), .Ground = ground});
  return picture;
}
