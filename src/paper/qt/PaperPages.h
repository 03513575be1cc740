// The pages of a printer, a print preview or a PDF file: how large they are, how much of the present one is
// still free, and the footer at the foot of each.
#pragma once

#include <QPagedPaintDevice>
#include <QPainter>
#include <QString>
#include <functional>

/// The margins of Page.h, whatever the paper.
void SetPageMargins(QPagedPaintDevice& device);

/// All lengths are dots of the device; (0, 0) is the top left corner of the text, x to the right, y downward.
class PaperPages {
 public:
  /// Begins the next page; false when there is none.
  using NextPage = std::function<bool()>;

  /// Begins the first page. `painter` paints on pages of `device`, which are begun by `next`, or by the
  /// device itself where none is given. Footers are painted when their pages end.
  PaperPages(QPagedPaintDevice& device, QPainter& painter, QString footer, NextPage next = {});

  QPainter& Painter() { return painter_; }
  QPagedPaintDevice& Device() const { return device_; }

  double FromPointsAcross(double points) const { return points / 72 * dpiX_; }
  double FromPointsDown(double points) const { return points / 72 * dpiY_; }
  QSizeF PixelOfScreen() const { return {dpiX_ / 96, dpiY_ / 96}; }  ///< a pixel of 96 to the inch

  double TextWidth() const { return textWidth_; }
  double PaperWidth() const { return paperWidth_; }  ///< from the text's left to the right edge of the paper
  double TextHeight() const { return textHeight_; }  ///< of a page, without the footer

  int Number() const { return number_; }  ///< of the present page, from 1
  bool AtTop() const { return used_ <= 0; }
  bool Fits(double height) const;

  /// Takes the next part of the page, or of the next page when it does not fit here. Returns its top.
  double Take(double height);

  /// Leaves a blank, which is not continued on the next page.
  void Skip(double height);

  /// Begins the next page.
  void Break();

  /// What the footer of the present page and of those after it says behind the title; empty: nothing.
  void SetPart(const QString& part);

  /// Ends the last page.
  void Finish();

  /// Whether the device refused a page; nothing ought to be painted then.
  bool Refused() const { return refused_; }

 private:
  void PaintFooter();

  QPagedPaintDevice& device_;
  QPainter& painter_;
  NextPage next_;
  QString footer_, part_;
  double dpiX_, dpiY_;
  double textWidth_, textHeight_, paperWidth_;
  double used_ = 0;
  int number_ = 1;
  bool refused_ = false;
};
