// Documents in the toolkit's preview: their pages are kept packed and look as if the toolkit had kept them
// itself.
#include <gtest/gtest.h>
#include <malloc.h>

#include <QGraphicsItem>
#include <QGraphicsView>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QScrollBar>
#include <QtTest>
#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string>
#include <utility>

#include "paper/qt/PaperPages.h"
#include "paper/qt/PreviewPages.h"
#include "reports/DocumentPages.h"

namespace {

// A heading, and a table whose rows reach into the margin.
DocumentBuilder TableOf(int numRows) {
  return [numRows](const DocumentTools& tools) {
    tools.Document.Append("The matrix:\r\n", {.Bold = true, .Colour = 4}, LineRole::Heading);
    for (int row = 1; row <= numRows; ++row) {
      std::string text = "row " + std::to_string(row);
      for (int column = 1; column <= 40; ++column) text += "  " + std::to_string(column);
      tools.Document.Append(text + "\r\n", {.Family = FontFamily::Monospaced}, LineRole::TableRow);
    }
    return true;
  };
}

enum class Keeps { PackedPages, AsTheToolkit };

// A preview on a screen.
class Preview {
 public:
  Preview(Keeps how, DocumentBuilder build) : build_(std::move(build)) {
    printer_.setOutputFormat(QPrinter::PdfFormat);
    printer_.setPageSize(QPageSize(QPageSize::A4));
    SetPageMargins(printer_);
    widget_ = std::make_unique<QPrintPreviewWidget>(&printer_);
    QObject::connect(widget_.get(), &QPrintPreviewWidget::paintRequested, [this, how](QPrinter* printer) {
      if (how == Keeps::AsTheToolkit) {
        isPainted_ = PrintDocument(*printer, QStringLiteral("Title"), build_);
      } else {
        isPainted_ = PrintDocument({*printer, pages_}, QStringLiteral("Title"), build_);
        PaintEmptyPages(*printer, pages_);
      }
    });
    if (how == Keeps::PackedPages) ShowOnPages(*widget_, printer_, pages_);
    widget_->resize(500, 600);
    widget_->show();
    widget_->updatePreview();
    EXPECT_TRUE(isPainted_);
  }

  QPrintPreviewWidget& Widget() { return *widget_; }
  QGraphicsView& View() { return *widget_->findChild<QGraphicsView*>(); }
  void Show(DocumentBuilder build) {
    build_ = std::move(build);
    widget_->updatePreview();
  }
  QImage Seen() {
    QApplication::processEvents();
    return widget_->grab().toImage();
  }

 private:
  DocumentBuilder build_;
  bool isPainted_ = false;
  QPrinter printer_{QPrinter::HighResolution};
  RecordedPages pages_;
  std::unique_ptr<QPrintPreviewWidget> widget_;
};

// But for one shade, in which the shadow of a sheet may be rounded.
void ExpectAlike(const QImage& a, const QImage& b, const std::string& where) {
  ASSERT_EQ(a.size(), b.size()) << where;
  int others = 0;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) {
      const QColor left = a.pixelColor(x, y), right = b.pixelColor(x, y);
      const auto apart = {left.red() - right.red(), left.green() - right.green(), left.blue() - right.blue()};
      others += std::ranges::any_of(apart, [](int shades) { return std::abs(shades) > 1; }) ? 1 : 0;
    }
  }
  EXPECT_EQ(others, 0) << where;
}

// In the middle of the preview, away from the shadow of its paper.
bool HasLetters(const QImage& image) {
  int dark = 0;
  for (int y = 100; y < 300; ++y) {
    for (int x = 100; x < 400; ++x) dark += qGray(image.pixel(x, y)) < 60 ? 1 : 0;
  }
  return dark > 100;
}

}  // namespace

TEST(PrintPreview, PackedPagesLookAsThoseOfTheToolkit) {
  Preview packed(Keeps::PackedPages, TableOf(300));
  Preview plain(Keeps::AsTheToolkit, TableOf(300));
  ASSERT_GT(plain.Widget().pageCount(), 3);
  EXPECT_EQ(packed.Widget().pageCount(), plain.Widget().pageCount());
  for (const int page : {1, 2, plain.Widget().pageCount()}) {
    for (const double zoom : {0.4, 1.0, 3.0}) {
      for (Preview* preview : {&packed, &plain}) {
        preview->Widget().setZoomFactor(zoom);
        preview->Widget().setCurrentPage(page);
      }
      const QImage seen = plain.Seen();
      if (zoom == 1) {
        EXPECT_TRUE(HasLetters(seen));
      }
      ExpectAlike(packed.Seen(), seen, "page " + std::to_string(page) + ", zoom " + std::to_string(zoom));
    }
  }
}

TEST(PrintPreview, AllPagesAtOnceLookAsThoseOfTheToolkit) {
  Preview packed(Keeps::PackedPages, TableOf(300));
  Preview plain(Keeps::AsTheToolkit, TableOf(300));
  for (Preview* preview : {&packed, &plain}) preview->Widget().setViewMode(QPrintPreviewWidget::AllPagesView);
  ExpectAlike(packed.Seen(), plain.Seen(), "all pages");
  for (Preview* preview : {&packed, &plain}) {
    preview->Widget().setViewMode(QPrintPreviewWidget::FacingPagesView);
    preview->Widget().setOrientation(QPageLayout::Landscape);
  }
  ExpectAlike(packed.Seen(), plain.Seen(), "facing pages");
  EXPECT_EQ(packed.Widget().pageCount(), plain.Widget().pageCount());
}

TEST(PrintPreview, ScrollingFindsThePageInSight) {
  Preview packed(Keeps::PackedPages, TableOf(300));
  Preview plain(Keeps::AsTheToolkit, TableOf(300));
  for (const double zoom : {1.0, 6.0}) {
    for (const double part : {0.0, 0.3, 0.6, 1.0}) {
      for (Preview* preview : {&packed, &plain}) {
        preview->Widget().setZoomFactor(zoom);
        QScrollBar& bar = *preview->View().verticalScrollBar();
        bar.setValue(static_cast<int>(bar.maximum() * part));
        QApplication::processEvents();
      }
      EXPECT_EQ(packed.Widget().currentPage(), plain.Widget().currentPage());
    }
    EXPECT_EQ(packed.Widget().currentPage(), plain.Widget().pageCount());
  }
  // The toolkit takes all that it finds for its own pages.
  for (const QGraphicsItem* found : packed.View().items(packed.View().viewport()->rect()))
    EXPECT_EQ(found->parentItem(), nullptr);
}

TEST(PrintPreview, AnotherDocumentTakesThePlaceOfTheFirst) {
  Preview packed(Keeps::PackedPages, TableOf(300));
  Preview plain(Keeps::AsTheToolkit, TableOf(60));
  EXPECT_NE(packed.Seen(), plain.Seen());
  packed.Show(TableOf(60));
  for (Preview* preview : {&packed, &plain}) preview->Widget().setCurrentPage(1);
  EXPECT_EQ(packed.Widget().pageCount(), plain.Widget().pageCount());
  ExpectAlike(packed.Seen(), plain.Seen(), "the other document");
}

TEST(PrintPreview, ADocumentThatIsEndedLeavesAnEmptyPage) {
  Preview packed(Keeps::PackedPages, TableOf(300));
  packed.Show([](const DocumentTools& tools) {
    TableOf(200)(tools);
    return false;
  });
  EXPECT_EQ(packed.Widget().pageCount(), 1);
  EXPECT_FALSE(HasLetters(packed.Seen()));
}

// The toolkit's own picture of such a page takes 50 KB and more.
TEST(PrintPreview, APageNeedsLittleMemory) {
  Preview preview(Keeps::PackedPages, TableOf(10));
  const std::size_t before = mallinfo2().uordblks;
  preview.Show(TableOf(20'000));
  const std::size_t after = mallinfo2().uordblks;
  ASSERT_GT(preview.Widget().pageCount(), 200);
  const auto numPages = static_cast<std::size_t>(preview.Widget().pageCount());
  EXPECT_LT((after - before) / numPages, 8'000U);
}
