// The pages of a document as pictures that are kept packed: a preview of thousands of pages needs little
// memory, and paints only those that are seen.
#pragma once

#include <QByteArray>
#include <QPagedPaintDevice>
#include <QPainter>
#include <memory>
#include <vector>

class RecordedPages {
 public:
  RecordedPages();
  ~RecordedPages();
  RecordedPages(const RecordedPages&) = delete;
  RecordedPages& operator=(const RecordedPages&) = delete;

  /// Forgets all pages and begins the first one with this painter, which must not be active. Letters come out
  /// as they do on `device`, which must outlive the recording.
  bool Begin(QPainter& painter, const QPagedPaintDevice& device);

  /// Ends a page and begins the next one.
  bool Next(QPainter& painter);

  /// Ends the last page.
  void End(QPainter& painter);

  void Clear();

  int Count() const { return static_cast<int>(pages_.size()); }

  /// Paints a page, from 1, in dots of the device that it was recorded for; (0, 0) is the left top of its
  /// text. Nothing where there is no such page.
  void Paint(QPainter& painter, int page) const;

 private:
  class Sheet;

  std::unique_ptr<Sheet> sheet_;
  const QPagedPaintDevice* device_ = nullptr;
  std::vector<QByteArray> pages_;
};
