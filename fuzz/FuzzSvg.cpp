// The picture of a truss with any names as SVG: well-formed, and without anything that would be fetched or
// run.
#include <QXmlStreamReader>
#include <cstddef>
#include <cstdint>

#include "InputBytes.h"
#include "NamedTruss.h"
#include "Require.h"
#include "paper/qt/PictureFiles.h"
#include "platform/qt/QtTextMeasure.h"
#include "reports/TrussPaint.h"

namespace {

// It draws, and no more: shapes and letters, and no address but those of the format's own names.
void CheckSvg(const QByteArray& bytes) {
  QXmlStreamReader xml(bytes);
  int numElements = 0;
  while (!xml.atEnd()) {
    if (xml.readNext() != QXmlStreamReader::StartElement) continue;
    ++numElements;
    Require(xml.name() != u"script" && xml.name() != u"foreignObject" && xml.name() != u"image",
            "a picture only draws");
    for (const QXmlStreamAttribute& attribute : xml.attributes()) {
      Require(attribute.name() != u"href" && !attribute.name().startsWith(u"on"), "a picture calls nothing");
    }
  }
  Require(!xml.hasError(), "a picture is XML");
  Require(numElements > 0, "a picture has something to draw with");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  InputBytes input(data, size);
  const int choice = input.Below(4);
  const AnalysedFile file = AnalysedSmallTruss(input);
  QtTextMeasure measure;
  const Picture picture = TrussPaint(
      file.Document, {file.Document.Settings.SigFigs, {}},
      [&measure](const TextFont& font, std::string_view text) { return measure.Measure(font, text); },
      {.ForceValues = choice % 2 == 0, .Names = choice < 2});
  CheckSvg(PictureFile(picture, PictureFileFormat::Svg));
  return 0;
}
