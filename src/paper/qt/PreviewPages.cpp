#include "paper/qt/PreviewPages.h"

#include <QGraphicsItem>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QPaintEngine>
#include <QPainterPath>
#include <QStyleOptionGraphicsItem>
#include <memory>
#include <utility>

namespace {

// What stands on a sheet of the preview. The preview takes every item that it finds somewhere for one of its
// sheets, so that this one must not be found anywhere.
class PageContent final : public QGraphicsItem {
 public:
  PageContent(const RecordedPages& pages, int number, const QPageLayout& layout, int resolution,
              QGraphicsItem& sheet)
      : QGraphicsItem(&sheet),
        pages_(pages),
        number_(number),
        paper_(QPointF(), layout.fullRectPixels(resolution).size()),
        printed_(layout.paintRectPixels(resolution)) {
    setAcceptedMouseButtons(Qt::NoButton);
    setCacheMode(DeviceCoordinateCache);
    sheet.setCacheMode(NoCache);  // empty paper is painted at once
  }

  QRectF boundingRect() const override { return paper_; }
  QPainterPath shape() const override { return {}; }
  bool contains(const QPointF& /*point*/) const override { return false; }
  bool collidesWithPath(const QPainterPath& /*path*/, Qt::ItemSelectionMode /*mode*/) const override {
    return false;
  }

  void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* /*widget*/) override {
    painter->setClipRect(paper_ & option->exposedRect);
    painter->fillRect(paper_, Qt::white);  // what is see-through is mixed with it, once
    painter->save();
    painter->translate(printed_.topLeft());
    pages_.Paint(*painter, number_);
    painter->restore();
    // What stands in the margins is pale, as the toolkit shows it.
    QPainterPath margins;
    margins.addRect(paper_);
    margins.addRect(printed_);
    painter->fillPath(margins, QColor(255, 255, 255, 180));
  }

 private:
  const RecordedPages& pages_;
  int number_;
  QRectF paper_, printed_;
};

}  // namespace

bool IsPreview(const QPaintDevice& device) { return device.paintEngine()->type() == QPaintEngine::Picture; }

void PaintEmptyPages(QPrinter& printer, const RecordedPages& pages) {
  const QPainter painter(&printer);
  for (int page = 2; page <= pages.Count(); ++page) printer.newPage();
}

void ShowOnPages(QPrintPreviewWidget& preview, const QPrinter& printer, const RecordedPages& pages) {
  const auto areNew = std::make_shared<bool>(false);
  QObject::connect(&preview, &QPrintPreviewWidget::paintRequested, &preview, [areNew] { *areNew = true; });
  QObject::connect(&preview, &QPrintPreviewWidget::previewChanged, &preview, [&, areNew] {
    const auto* view = preview.findChild<QGraphicsView*>();
    if (!std::exchange(*areNew, false) || view == nullptr) return;
    int number = 0;
    for (QGraphicsItem* item : view->scene()->items(Qt::AscendingOrder)) {
      if (item->parentItem() != nullptr) continue;
      ++number;
      if (item->childItems().isEmpty())
        new PageContent(pages, number, printer.pageLayout(), printer.resolution(), *item);
    }
  });
}
