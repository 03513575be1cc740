#include "support/RtfScan.h"

#include <map>
#include <optional>
#include <string>

namespace {

enum class Destination {
  Body,
  FontTable,
  FontEntry,
  ColourTable,
  Styles,
  Information,
  Title,
  Picture,
  PictureProperties,
  PropertyName,
  PropertyValue
};
enum class Number { None, Needed, ZeroOnly };  // what may stand behind a control word

struct WordRule {
  Destination Where;
  Number Parameter;
};

// Every control word that we write.
const std::map<std::string, WordRule> Words = {
    {"ansi", {Destination::Body, Number::None}},
    {"ansicpg", {Destination::Body, Number::Needed}},
    {"b", {Destination::Body, Number::ZeroOnly}},
    {"blue", {Destination::ColourTable, Number::Needed}},
    {"cell", {Destination::Body, Number::None}},
    {"cellx", {Destination::Body, Number::Needed}},
    {"cf", {Destination::Body, Number::Needed}},
    {"deff", {Destination::Body, Number::Needed}},
    {"deftab", {Destination::Body, Number::Needed}},
    {"fcharset", {Destination::FontEntry, Number::Needed}},
    {"fmodern", {Destination::FontEntry, Number::None}},
    {"fprq", {Destination::FontEntry, Number::Needed}},
    {"fs", {Destination::Body, Number::Needed}},
    {"fswiss", {Destination::FontEntry, Number::None}},
    {"green", {Destination::ColourTable, Number::Needed}},
    {"i", {Destination::Body, Number::ZeroOnly}},
    {"intbl", {Destination::Body, Number::None}},
    {"keep", {Destination::Body, Number::None}},
    {"line", {Destination::Body, Number::None}},
    {"margb", {Destination::Body, Number::Needed}},
    {"margl", {Destination::Body, Number::Needed}},
    {"margr", {Destination::Body, Number::Needed}},
    {"margt", {Destination::Body, Number::Needed}},
    {"outlinelevel", {Destination::Body, Number::Needed}},
    {"paperh", {Destination::Body, Number::Needed}},
    {"paperw", {Destination::Body, Number::Needed}},
    {"par", {Destination::Body, Number::None}},
    {"pard", {Destination::Body, Number::None}},
    {"keepn", {Destination::Body, Number::None}},
    {"pich", {Destination::Picture, Number::Needed}},
    {"pichgoal", {Destination::Picture, Number::Needed}},
    {"picw", {Destination::Picture, Number::Needed}},
    {"picwgoal", {Destination::Picture, Number::Needed}},
    {"plain", {Destination::Body, Number::None}},
    {"pngblip", {Destination::Picture, Number::None}},
    {"red", {Destination::ColourTable, Number::Needed}},
    {"row", {Destination::Body, Number::None}},
    {"rtf", {Destination::Body, Number::Needed}},
    {"s", {Destination::Body, Number::Needed}},
    {"tab", {Destination::Body, Number::None}},
    {"trgaph", {Destination::Body, Number::Needed}},
    {"trhdr", {Destination::Body, Number::None}},
    {"trkeep", {Destination::Body, Number::None}},
    {"trleft", {Destination::Body, Number::Needed}},
    {"trowd", {Destination::Body, Number::None}},
    {"u", {Destination::Body, Number::Needed}},
    {"uc", {Destination::Body, Number::Needed}},
    {"ul", {Destination::Body, Number::None}},
    {"ulnone", {Destination::Body, Number::None}},
    {"viewkind", {Destination::Body, Number::Needed}},
};

// Reads the signs of RTF: groups, control words and symbols, characters.
class RtfReader {
 public:
  explicit RtfReader(const QByteArray& rtf) : rtf_(rtf) {
    for (const char byte : rtf_) {
      const bool lineEnd = byte == '\r' || byte == '\n';
      Check(lineEnd || (byte >= 0x20 && byte < 0x7F), "not a 7-bit character");
      ++at_;
    }
    at_ = 0;
  }

  RtfDocument Read() {
    Check(rtf_.startsWith("{\\rtf1\\ansi\\ansicpg1252\\deff0"), "does not begin as RTF");
    at_ = 1;
    document_.Paragraphs.emplace_back();
    ReadGroup(Destination::Body);
    Check(!isInRow_, "a row without its end");
    Check(QByteArrayView(rtf_).sliced(at_).trimmed().isEmpty(), "something after the last brace");
    document_.Paragraphs.back().EndLook = look_;
    document_.Paragraphs.back().Layout = paragraph_;
    document_.TextWidth = document_.PaperWidth - margins_;
    return document_;
  }

 private:
  void Check(bool right, const char* wrong, const std::string& word = {}) const {
    if (!right) throw RtfError(wrong + word + " at byte " + std::to_string(at_));
  }
  char Peek() const {
    Check(at_ < rtf_.size(), "the end comes too early");
    return rtf_[at_];
  }
  char Take() {
    const char next = Peek();
    ++at_;
    return next;
  }
  static bool IsLetter(char c) { return c >= 'a' && c <= 'z'; }
  static bool IsDigit(char c) { return c >= '0' && c <= '9'; }

  // From behind the opening brace to behind the closing one.
  void ReadGroup(Destination destination) {
    for (;;) {
      const char next = Take();
      if (next == '}') {
        break;
      } else if (next == '{') {
        ReadGroup(DestinationOfGroup(destination));
      } else if (next == '\\') {
        ReadControl(destination);
      } else if (next != '\r' && next != '\n') {
        ReadCharacter(destination, next);
      }
    }
    Check(fallbacks_ == 0, "a group ends before the fallback of a character");
    if (destination == Destination::Picture) EndPicture();
  }

  Destination DestinationOfGroup(Destination outer) {
    const auto begins = [this](const char* word) {
      return QByteArrayView(rtf_).sliced(at_).startsWith(word);
    };
    const auto skip = [this](int length, Destination destination) {
      at_ += length;
      Check(!IsLetter(Peek()) && !IsDigit(Peek()), "an unknown group");
      return destination;
    };
    Check(fallbacks_ == 0, "a group stands as the fallback of a character");
    if (outer == Destination::FontTable && begins("\\f")) return Destination::FontEntry;
    const auto skipToText = [&](int length, Destination destination) {
      skip(length, destination);
      if (Peek() == ' ') ++at_;
      return destination;
    };
    if (outer == Destination::Information && begins("\\title")) return skipToText(6, Destination::Title);
    if (outer == Destination::Picture && begins("\\*\\picprop{\\sp{")) {
      return skip(10, Destination::PictureProperties);
    }
    if (outer == Destination::PictureProperties && begins("\\sp{")) {
      return skip(3, Destination::PictureProperties);
    }
    if (outer == Destination::PictureProperties && begins("\\sn wzDescription}{\\sv")) {
      return skipToText(3, Destination::PropertyName);
    }
    if (outer == Destination::PictureProperties && begins("\\sv")) {
      return skipToText(3, Destination::PropertyValue);
    }
    Check(outer == Destination::Body, "a group within a table");
    if (begins("}")) return Destination::Body;  // nothing, between two blanks
    if (begins("\\stylesheet")) {
      document_.HasHeadingStyles = begins(
          "\\stylesheet{\\s0 Normal;}{\\s1\\sb0\\sa0\\outlinelevel0 heading 1;}"
          "{\\s2\\sb0\\sa0\\outlinelevel1 heading 2;}}");
      Check(document_.HasHeadingStyles, "other styles");
      at_ = rtf_.indexOf("}}", at_) + 1;
      return Destination::Styles;
    }
    if (begins("\\info{")) return skip(5, Destination::Information);
    if (begins("\\fonttbl")) return skip(8, Destination::FontTable);
    if (begins("\\colortbl")) return skip(9, Destination::ColourTable);
    Check(begins("\\pict"), "an unknown group");
    picture_ = {};
    hex_.clear();
    return skip(5, Destination::Picture);
  }

  void ReadControl(Destination destination) {
    if (IsLetter(Peek())) return ReadWord(destination);
    const char symbol = Take();
    Check(HasText(destination), "a symbol where there is no text");
    if (symbol == '\'') {
      bool isHex = false;
      const int byte = rtf_.mid(at_, 2).toInt(&isHex, 16);
      Check(isHex && (byte >= 0x80 || byte == '?'), "a wrong byte in hexadecimal");
      at_ += 2;
      Check(fallbacks_ == 1, "a byte of the code page that is no fallback");
      --fallbacks_;
    } else if (symbol == '~') {
      PutInto(destination, QChar(QChar::Nbsp));
    } else {
      Check(symbol == '\\' || symbol == '{' || symbol == '}', "an unknown symbol");
      PutInto(destination, QLatin1Char(symbol));
    }
  }

  void ReadWord(Destination destination) {
    std::string word;
    while (IsLetter(Peek())) word += Take();
    std::string digits;
    if (Peek() == '-') digits += Take();
    while (IsDigit(Peek())) digits += Take();
    Check(digits != "-" && digits.size() <= 8, "a wrong number behind ", word);
    if (Peek() == ' ') ++at_;
    const std::optional<int> number = digits.empty() ? std::nullopt : std::optional(std::stoi(digits));
    if (word == "f") return ReadFont(destination, number);
    if (word == "u" && HasText(destination)) return ReadUnicode(destination, number);

    const auto rule = Words.find(word);
    Check(rule != Words.end(), "an unknown control word ", word);
    Check(rule->second.Where == destination, "a wrong place for ", word);
    switch (rule->second.Parameter) {
      case Number::None:
        Check(!number, "a number behind ", word);
        break;
      case Number::Needed:
        Check(number.has_value(), "no number behind ", word);
        break;
      case Number::ZeroOnly:
        Check(!number || *number == 0, "a number that is not 0 behind ", word);
        break;
    }
    Check(fallbacks_ == 0, "a control word stands as the fallback of a character");
    Obey(word, number.value_or(1));
  }

  static bool HasText(Destination destination) {
    return destination == Destination::Body || destination == Destination::Title ||
           destination == Destination::PropertyValue;
  }

  void ReadUnicode(Destination destination, std::optional<int> number) {
    Check(number && *number >= -32768 && *number <= 32767, "\\u without a number of 16 bits");
    PutInto(destination, QChar(static_cast<char16_t>(*number)));
    fallbacks_ = 1;
  }

  void ReadFont(Destination destination, std::optional<int> number) {
    Check(number.has_value(), "\\f without a number");
    if (destination == Destination::FontEntry) {
      Check(*number == static_cast<int>(fonts_.size()), "fonts are not counted in order");
      fonts_.emplace_back();
    } else {
      Check(destination == Destination::Body && *number >= 0 && *number < static_cast<int>(fonts_.size()),
            "a font that is not in the table");
      look_.Font = fonts_[static_cast<std::size_t>(*number)];
    }
  }

  void Obey(const std::string& word, int number) {
    if (word == "par") {
      Check(!paragraph_.IsRow, "a paragraph's end in a row");
      EndParagraph();
    } else if (word == "trowd") {
      Check(!isInRow_, "a row within a row");
      isInRow_ = true;
      isHeaderRow_ = false;
    } else if (word == "trhdr") {
      isHeaderRow_ = true;
    } else if (word == "pard") {
      paragraph_ = {};
    } else if (word == "cell") {
      Check(isInRow_ && paragraph_.IsRow, "a cell that is in no row");
    } else if (word == "row") {
      Check(isInRow_, "the end of a row that has not begun");
      EndParagraph();
      isInRow_ = false;
    } else if (word == "tab") {
      Put(u'\t');
    } else if (word == "line") {
      Put(QChar(QChar::LineSeparator));
    } else if (word == "uc") {
      Check(number == 1, "more or less than one fallback");
    } else if (word == "plain") {
      look_ = RtfLook{.Font = fonts_.at(0)};
    } else if (word == "fs") {
      Check(number > 0, "letters without a size");
      look_.HalfPoints = number;
    } else if (word == "cf") {
      Check(number > 0 && number < static_cast<int>(colours_.size()), "a colour that is not in the table");
      look_.Colour = colours_[static_cast<std::size_t>(number)];
    } else {
      ObeySwitch(word, number);
    }
  }

  void EndParagraph() {
    Check(paragraph_.IsRow == isInRow_, "a row whose paragraph is in no table");
    document_.Paragraphs.back().EndLook = look_;
    document_.Paragraphs.back().Layout = paragraph_;
    document_.Paragraphs.back().Layout.IsHeaderRow = isInRow_ && isHeaderRow_;
    document_.Paragraphs.emplace_back();
  }

  void ObeySwitch(const std::string& word, int number) {
    if (word == "intbl") paragraph_.IsRow = true;
    if (word == "keep") paragraph_.StaysWhole = true;
    if (word == "keepn") paragraph_.StaysWithNext = true;
    if (word == "s") paragraph_.Style = number;
    if (word == "outlinelevel") paragraph_.OutlineLevel = number;
    if (word == "b") look_.Bold = number != 0;
    if (word == "i") look_.Italic = number != 0;
    if (word == "ul" || word == "ulnone") look_.Underlined = word == "ul";
    if (word == "red") colour_.setRed(number);
    if (word == "green") colour_.setGreen(number);
    if (word == "blue") colour_.setBlue(number);
    if (word == "picw") picture_.Image = QImage(number, 1, QImage::Format_RGB32);
    if (word == "pich") picture_.Image = QImage(picture_.Image.width(), number, QImage::Format_RGB32);
    if (word == "picwgoal") picture_.WidthInTwips = number;
    if (word == "pichgoal") picture_.HeightInTwips = number;
    if (word == "paperw") document_.PaperWidth = number;
    if (word == "paperh") document_.PaperHeight = number;
    if (word == "deftab") document_.DefaultTab = number;
    if (word == "margl" || word == "margr") margins_ += number;
  }

  void ReadCharacter(Destination destination, char character) {
    switch (destination) {
      case Destination::Body:
      case Destination::Title:
      case Destination::PropertyValue:
        PutInto(destination, QLatin1Char(character));
        break;
      case Destination::PropertyName:
        break;
      case Destination::FontEntry:
        Check(!fontIsEnded_ || fonts_.back().isEmpty(), "something after a font's name");
        fontIsEnded_ = character == ';';
        if (!fontIsEnded_) fonts_.back() += QLatin1Char(character);
        break;
      case Destination::ColourTable:
        Check(character == ';', "a character in the table of colours");
        colours_.push_back(colour_.rgb());
        colour_ = Qt::black;
        break;
      case Destination::Picture:
        Check(IsDigit(character) || (character >= 'a' && character <= 'f'), "not a hexadecimal digit");
        hex_ += character;
        break;
      default:
        Check(false, "a character between groups");
        break;
    }
  }

  void EndPicture() {
    Check(!hex_.isEmpty() && hex_.size() % 2 == 0, "a picture with half a byte or none");
    QImage image;
    Check(image.loadFromData(QByteArray::fromHex(hex_), "PNG"), "a picture that is no PNG");
    Check(image.size() == picture_.Image.size(), "a picture of another size than told");
    Check(picture_.WidthInTwips > 0 && picture_.HeightInTwips > 0, "a picture without a size on paper");
    picture_.Image = image;
    picture_.Description = description_;
    description_.clear();
    document_.Pictures.push_back(picture_);
    Put(QChar(QChar::ObjectReplacementCharacter));
  }

  void PutInto(Destination destination, QChar character) {
    if (destination == Destination::Body) return Put(character);
    Check(fallbacks_ == 0, "the fallback of a character is no byte in hexadecimal");
    (destination == Destination::Title ? document_.Title : description_) += character;
  }

  void Put(QChar character) {
    Check(fallbacks_ == 0, "the fallback of a character is no byte in hexadecimal");
    Check(look_.Font.size() > 0, "text without a font");
    std::vector<RtfRun>& runs = document_.Paragraphs.back().Runs;
    if (runs.empty() || runs.back().Look != look_) runs.push_back({look_, {}});
    runs.back().Text += character;
  }

  const QByteArray& rtf_;
  qsizetype at_ = 0;
  int fallbacks_ = 0;  // that are still to come
  RtfLook look_;
  std::vector<QString> fonts_;
  bool fontIsEnded_ = false;
  QColor colour_ = Qt::black;
  std::vector<QRgb> colours_;
  RtfPicture picture_;
  QByteArray hex_;
  int margins_ = 0;
  RtfLayout paragraph_;
  bool isInRow_ = false, isHeaderRow_ = false;
  QString description_;
  RtfDocument document_;
};

void CheckLengthOfHexLines(const QByteArray& rtf) {
  constexpr qsizetype longest = 128;
  for (const QByteArray& line : rtf.split('\n')) {
    const QByteArray digits = line.trimmed();
    bool isHex = !digits.isEmpty();
    for (const char c : digits) isHex = isHex && QByteArrayView("0123456789abcdef").contains(c);
    if (isHex && digits.size() > longest) throw RtfError("a line of hexadecimal digits is too long");
  }
}

}  // namespace

std::string RtfDocument::Text() const {
  QString text;
  for (const RtfParagraph& paragraph : Paragraphs) {
    for (const RtfRun& run : paragraph.Runs) text += run.Text;
    text += u'\n';
  }
  text.chop(1);
  return text.toStdString();
}

std::vector<RtfRun> RtfDocument::Runs() const {
  std::vector<RtfRun> runs;
  for (const RtfParagraph& paragraph : Paragraphs) {
    runs.insert(runs.end(), paragraph.Runs.begin(), paragraph.Runs.end());
  }
  return runs;
}

RtfDocument ScanRtf(const QByteArray& rtf) {
  CheckLengthOfHexLines(rtf);
  return RtfReader(rtf).Read();
}
