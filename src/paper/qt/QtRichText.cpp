// Everything happens inside edit blocks: outside of one a cursor asks for the layout of its
// line after every step.
#include "paper/qt/QtRichText.h"

#include <QTextBlock>
#include <QTextImageFormat>
#include <QTextOption>
#include <QUrl>
#include <algorithm>

#include "paper/qt/AppendedText.h"
#include "paper/qt/DocumentImages.h"

namespace {

// The property of a line's format that holds its role.
constexpr int RoleProperty = QTextFormat::UserProperty + 1;

}  // namespace

QTextCharFormat ToQt(const CharacterFormat& format) {
  const bool monospaced = format.Family == FontFamily::Monospaced;
  QTextCharFormat qtFormat;
  qtFormat.setFontFamilies({FamilyName(format.Family)});
  if (monospaced) qtFormat.setFontStyleHint(QFont::Monospace);
  qtFormat.setFontPointSize(double{format.Points});
  qtFormat.setForeground(ColourOf(format));
  if (format.Bold) qtFormat.setFontWeight(QFont::Bold);
  if (format.Italic) qtFormat.setFontItalic(true);
  if (format.Underlined) qtFormat.setFontUnderline(true);
  return qtFormat;
}

LineRole RoleOf(const QTextBlock& line) {
  return static_cast<LineRole>(line.blockFormat().intProperty(RoleProperty));
}

QtRichText::QtRichText(QTextDocument& document, std::function<QImage()> clipboard)
    : document_(document), end_(&document), clipboard_(std::move(clipboard)) {
  document_.setUndoRedoEnabled(false);
  document_.setDefaultFont(QFont(FamilyName(FontFamily::Proportional), 10));
  QTextOption option = document_.defaultTextOption();
  option.setTabStopDistance(StandardTabStop);
  document_.setDefaultTextOption(option);
}

void QtRichText::AppendText(std::string_view text, const CharacterFormat& format, LineRole role) {
  const QTextCharFormat& qtFormat = Remembered(format);
  const bool monospaced = format.Family == FontFamily::Monospaced;

  end_.beginEditBlock();
  end_.setPosition(document_.characterCount() - 1);
  const auto insert = [&](QStringView letters) {
    if (end_.atBlockStart()) {
      FormatLine(role, !monospaced);
    } else if (!monospaced) {
      SetWrapping(true);
    }
    end_.insertText(letters.toString(), qtFormat);
  };
  ReadLines(text, insert, [&] { end_.insertBlock(QTextBlockFormat(), qtFormat); });
  end_.endEditBlock();
}

// In one step: each makes the document look through what it knows of the line.
void QtRichText::FormatLine(LineRole role, bool wraps) {
  if (role == LineRole::Text) {
    SetWrapping(wraps);
    return;
  }
  QTextBlockFormat line = end_.blockFormat();
  if (line.nonBreakableLines() == wraps) line.setNonBreakableLines(!wraps);
  line.setProperty(RoleProperty, static_cast<int>(role));
  if (IsHeading(role)) line.setHeadingLevel(HeadingLevel(role));
  if (role == LineRole::PageTitle) line.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
  end_.setBlockFormat(line);
}

void QtRichText::SetWrapping(bool wraps) {
  QTextBlockFormat line = end_.blockFormat();
  if (line.nonBreakableLines() != wraps) return;
  line.setNonBreakableLines(!wraps);
  end_.setBlockFormat(line);
}

const QTextCharFormat& QtRichText::Remembered(const CharacterFormat& format) {
  const auto found = std::find_if(formats_.begin(), formats_.end(),
                                  [&](const auto& known) { return known.first == format; });
  return found != formats_.end() ? found->second : formats_.emplace_back(format, ToQt(format)).second;
}

bool QtRichText::PastePicture(std::string_view description) {
  const QImage image = clipboard_ ? clipboard_() : QImage();
  if (image.isNull()) return false;
  const QString name = QStringLiteral("picture%1.png").arg(++numPictures_);
  document_.addResource(QTextDocument::ImageResource, QUrl(name), image);

  end_.beginEditBlock();
  end_.setPosition(document_.characterCount() - 1);
  const QSizeF size = SizeOnPage(image, end_.block().text());
  QTextImageFormat format;
  format.setName(name);
  format.setWidth(size.width());
  format.setHeight(size.height());
  format.setProperty(QTextFormat::ImageAltText,
                     QString::fromUtf8(description.data(), static_cast<qsizetype>(description.size())));
  // In a narrow window a picture behind a tab would move to a line of its own, below one as high as itself.
  SetWrapping(false);
  end_.insertImage(format);
  end_.endEditBlock();
  return true;
}
