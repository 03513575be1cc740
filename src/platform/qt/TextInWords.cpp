// The letters that stand for a picture are counted like others, so that places in what is read aloud and
// places in the document differ behind each picture.
#include "platform/qt/TextInWords.h"

#include <QAccessibleWidget>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextFragment>
#include <QVariant>
#include <algorithm>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace {

constexpr auto PicturesProperty = "orvanePicturesInWords";
constexpr auto TextProperty = "orvaneReadAloudAs";

// A text with the pictures in words, and where in it they stand.
struct SpokenText {
  struct Picture {
    int Position;  // in the document, where it takes one place
    int Start;     // in the spoken text
    int Length;
  };

  QString Text;
  std::vector<Picture> Pictures;  // in the order in which they stand

  int FromDocument(int position) const {
    int shift = 0;
    for (const Picture& picture : Pictures) {
      if (picture.Position >= position) break;
      shift += picture.Length - 1;
    }
    return std::clamp(position + shift, 0, static_cast<int>(Text.size()));
  }

  // A place inside a picture's words is the picture.
  int ToDocument(int offset) const {
    int shift = 0;
    for (const Picture& picture : Pictures) {
      if (offset <= picture.Start) break;
      if (offset < picture.Start + picture.Length) return picture.Position;
      shift += picture.Length - 1;
    }
    return std::max(0, offset - shift);
  }
};

QString PictureInWords(const QTextCharFormat& format) {
  const QString words = format.toImageFormat().property(QTextFormat::ImageAltText).toString();
  return words.isEmpty() ? QStringLiteral("[picture]") : QStringLiteral("[picture: %1]").arg(words);
}

void Append(const QTextFragment& fragment, SpokenText& spoken) {
  if (!fragment.charFormat().isImageFormat()) {
    spoken.Text += fragment.text();
    return;
  }
  const QString words = PictureInWords(fragment.charFormat());
  for (int i = 0; i < fragment.length(); ++i) {
    spoken.Pictures.push_back(
        {fragment.position() + i, static_cast<int>(spoken.Text.size()), static_cast<int>(words.size())});
    spoken.Text += words;
  }
}

SpokenText Spoken(const QTextDocument& document) {
  SpokenText spoken;
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    if (block.blockNumber() > 0) spoken.Text += u'\n';
    for (auto at = block.begin(); !at.atEnd(); ++at) Append(at.fragment(), spoken);
  }
  spoken.Text.replace(QChar::LineSeparator, u'\n');
  spoken.Text.replace(QChar::Nbsp, u' ');
  return spoken;
}

class TextOnDemand {
 public:
  explicit TextOnDemand(std::function<QString()> make) : make_(std::move(make)) {}

  const QString& Text() {
    if (!made_) made_ = make_();
    return *made_;
  }

 private:
  std::function<QString()> make_;
  std::optional<QString> made_;
};

// A text that stands still, and has no caret.
class StillText : public QAccessibleWidget, public QAccessibleTextInterface {
 public:
  explicit StillText(QWidget* widget) : QAccessibleWidget(widget, QAccessible::EditableText) {}

  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.readOnly = true;
    state.multiLine = true;
    state.selectableText = true;
    return state;
  }
  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
  }

  QString text(QAccessible::Text text) const override {
    return text == QAccessible::Value ? Words() : QAccessibleWidget::text(text);
  }
  QString text(int start, int end) const override { return Words().mid(start, end - start); }
  int characterCount() const override { return static_cast<int>(Words().size()); }

  void selection(int /*index*/, int* start, int* end) const override { *start = *end = 0; }
  int selectionCount() const override { return 0; }
  void addSelection(int /*start*/, int /*end*/) override {}
  void removeSelection(int /*index*/) override {}
  void setSelection(int /*index*/, int /*start*/, int /*end*/) override {}
  int cursorPosition() const override { return 0; }
  void setCursorPosition(int /*position*/) override {}
  QRect characterRect(int /*offset*/) const override { return rect(); }
  int offsetAtPoint(const QPoint& /*point*/) const override { return 0; }
  void scrollToSubstring(int /*start*/, int /*end*/) override {}
  QString attributes(int /*offset*/, int* start, int* end) const override {
    *start = 0;
    *end = characterCount();
    return {};
  }

 protected:
  virtual QString Words() const {
    return widget()->property(TextProperty).value<std::shared_ptr<TextOnDemand>>()->Text();
  }
};

// A text box, in which one goes about and selects.
class BoxInWords final : public StillText {
 public:
  explicit BoxInWords(QTextEdit& box) : StillText(&box), box_(box) {}
  BoxInWords(const BoxInWords&) = delete;
  BoxInWords& operator=(const BoxInWords&) = delete;
  ~BoxInWords() override { QObject::disconnect(changed_); }

  void selection(int index, int* start, int* end) const override {
    *start = *end = 0;
    if (index != 0 || selectionCount() == 0) return;
    *start = Now().FromDocument(box_.textCursor().selectionStart());
    *end = Now().FromDocument(box_.textCursor().selectionEnd());
  }
  int selectionCount() const override { return box_.textCursor().hasSelection() ? 1 : 0; }
  void addSelection(int start, int end) override { setSelection(0, start, end); }
  void removeSelection(int index) override {
    if (index == 0) Go(cursorPosition(), cursorPosition());
  }
  void setSelection(int index, int start, int end) override {
    if (index == 0) Go(start, end);
  }
  int cursorPosition() const override { return Now().FromDocument(box_.textCursor().position()); }
  void setCursorPosition(int position) override { Go(position, position); }
  QRect characterRect(int offset) const override {
    QTextCursor cursor(box_.document());
    cursor.setPosition(PlaceOf(offset));
    const QRect place = box_.cursorRect(cursor);
    return {box_.viewport()->mapToGlobal(place.topLeft()), place.size()};
  }
  int offsetAtPoint(const QPoint& point) const override {
    return Now().FromDocument(box_.cursorForPosition(box_.viewport()->mapFromGlobal(point)).position());
  }
  void scrollToSubstring(int start, int end) override {
    Go(start, end);
    box_.ensureCursorVisible();
  }

 protected:
  QString Words() const override { return Now().Text; }

 private:
  // Made anew after a change.
  const SpokenText& Now() const {
    const QTextDocument* document = box_.document();
    if (known_ != document) {
      QObject::disconnect(changed_);
      changed_ =
          QObject::connect(document, &QTextDocument::contentsChanged, &box_, [this] { known_ = nullptr; });
      spoken_ = Spoken(*document);
      known_ = document;
    }
    return spoken_;
  }
  int PlaceOf(int offset) const {
    return std::clamp(Now().ToDocument(offset), 0, std::max(0, box_.document()->characterCount() - 1));
  }
  void Go(int start, int end) {
    QTextCursor cursor = box_.textCursor();
    cursor.setPosition(PlaceOf(start));
    cursor.setPosition(PlaceOf(end), QTextCursor::KeepAnchor);
    box_.setTextCursor(cursor);
  }

  QTextEdit& box_;
  mutable SpokenText spoken_;
  mutable const QTextDocument* known_ = nullptr;  // of which it is
  mutable QMetaObject::Connection changed_;
};

QAccessibleInterface* MakeTextInWords(const QString& /*className*/, QObject* object) {
  if (auto* box = qobject_cast<QTextEdit*>(object);
      box != nullptr && box->property(PicturesProperty).toBool())
    return new BoxInWords(*box);
  auto* widget = qobject_cast<QWidget*>(object);
  const bool isText = widget != nullptr && widget->property(TextProperty).isValid();
  return isText ? new StillText(widget) : nullptr;
}

}  // namespace

QString TextInWords(const QTextDocument& document) { return Spoken(document).Text; }

void TellPicturesInWords(QTextEdit& box) {
  box.setProperty(PicturesProperty, true);
  QAccessible::installFactory(MakeTextInWords);
}

void ReadAloudAs(QWidget& widget, std::function<QString()> text) {
  widget.setProperty(TextProperty, QVariant::fromValue(std::make_shared<TextOnDemand>(std::move(text))));
  QAccessible::installFactory(MakeTextInWords);
}
