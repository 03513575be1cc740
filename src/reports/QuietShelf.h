// A clipboard of the program's own with all that goes with one, for documents that are built without the
// desktop's.
#pragma once

#include <QImage>

#include "paper/PictureShelf.h"
#include "platform/qt/QtPicture.h"
#include "reports/RTBPicture.h"

/// It never fails, so nobody waits and nothing is told.
class QuietShelf final : private Clock, private MessageBox {
 public:
  ClipboardAccess Access() { return {shelf_, *this, *this}; }
  const PictureShelf& Shelf() const { return shelf_; }
  QImage Bitmap() const { return shelf_.Held() == nullptr ? QImage() : ToImage(*shelf_.Held()); }

 private:
  void Pause(int) override {}
  MessageAnswer Show(const Message&) override { return MessageAnswer::Ok; }

  PictureShelf shelf_;
};
