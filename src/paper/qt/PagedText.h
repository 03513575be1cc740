// Rich text on pages, painted line by line as it arrives, so that a document of any length needs the memory
// of one page: for printers, for the print preview and for PDF.
#pragma once

#include <QPagedPaintDevice>
#include <QPainter>
#include <QString>
#include <functional>
#include <memory>

#include "paper/PictureShelf.h"
#include "paper/RichText.h"

/// The text's width on this device's page in points.
float TextWidth(const QPagedPaintDevice& device);

/// Lines wrap at the page's text width; monospaced lines are not wrapped but cut at the paper's edge.
/// Lines stay together as their roles say, as far as a page has room for them: two lines with the heading
/// above them, the first row of a table with its header. A page on which a table goes on begins with its
/// header. A picture is not cut. Blank lines that do not fit on a page are not continued on the next. Every
/// page has a footer with the title on its left and the page's number on its right. Sizes follow the device's
/// dots to the inch.
class PagedText final : public RichText {
 public:
  /// Paints with `painter`, which is active on `device`, or on pages like those of `device` which `nextPage`
  /// begins. Paste takes the picture from `shelf`, as vectors.
  PagedText(QPagedPaintDevice& device, QPainter& painter, const PictureShelf& shelf, QString footer,
            std::function<bool()> nextPage = {});
  ~PagedText() override;

  /// Paints what is left. To be called once, after the last text. Returns the number of pages.
  int Finish();

  /// Whether the device has refused a page; what comes after that is not painted.
  bool Refused() const;

 private:
  void AppendText(std::string_view text, const CharacterFormat& format, LineRole role) override;
  bool PastePicture(std::string_view description) override;

  class Pages;
  std::unique_ptr<Pages> pages_;
};
