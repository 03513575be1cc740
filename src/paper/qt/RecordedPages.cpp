// A page of a table takes the toolkit 50 to 100 KB, most of which says again and again in which font a row
// is; packed it takes 2 KB, and is there again in a millisecond.
#include "paper/qt/RecordedPages.h"

#include <QPicture>
#include <utility>

namespace {

constexpr int FastestPacking = 1;

}  // namespace

// A picture whose letters are measured as those of another device.
class RecordedPages::Sheet final : public QPicture {
 public:
  explicit Sheet(const QPagedPaintDevice& device) : device_(device) {}

 protected:
  int metric(PaintDeviceMetric what) const override {
    switch (what) {
      case PdmDpiX:
        return device_.logicalDpiX();
      case PdmDpiY:
        return device_.logicalDpiY();
      case PdmPhysicalDpiX:
        return device_.physicalDpiX();
      case PdmPhysicalDpiY:
        return device_.physicalDpiY();
      default:
        return QPicture::metric(what);
    }
  }

 private:
  const QPagedPaintDevice& device_;
};

RecordedPages::RecordedPages() = default;
RecordedPages::~RecordedPages() = default;

bool RecordedPages::Begin(QPainter& painter, const QPagedPaintDevice& device) {
  Clear();
  device_ = &device;
  sheet_ = std::make_unique<Sheet>(device);
  return painter.begin(sheet_.get());
}

bool RecordedPages::Next(QPainter& painter) {
  End(painter);
  sheet_ = std::make_unique<Sheet>(*device_);
  return painter.begin(sheet_.get());
}

void RecordedPages::End(QPainter& painter) {
  painter.end();
  const auto* bytes = reinterpret_cast<const uchar*>(sheet_->data());
  QByteArray packed = qCompress(bytes, static_cast<qsizetype>(sheet_->size()), FastestPacking);
  packed.squeeze();  // it has room for what cannot be packed
  pages_.push_back(std::move(packed));
  sheet_.reset();
}

void RecordedPages::Clear() {
  pages_.clear();
  sheet_.reset();
}

void RecordedPages::Paint(QPainter& painter, int page) const {
  if (page < 1 || page > Count()) return;
  const QByteArray bytes = qUncompress(pages_[static_cast<std::size_t>(page) - 1]);
  QPicture picture;
  picture.setData(bytes.constData(), static_cast<uint>(bytes.size()));
  painter.drawPicture(QPointF(), picture);
}
