// The printable report of a truss with any names, in a format that can be read back: RTF by a reader that
// forgives nothing, OpenDocument as XML, and web pages by the toolkit.
#include <zip.h>

#include <QTextDocument>
#include <QXmlStreamReader>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "InputBytes.h"
#include "NamedTruss.h"
#include "Require.h"
#include "platform/qt/QtText.h"
#include "reports/PrintableReportFiles.h"
#include "support/RtfScan.h"
#include "text/ControlCharacters.h"

namespace {

constexpr std::size_t MostSections = 4;

bool IsXml(const QByteArray& bytes) {
  QXmlStreamReader xml(bytes);
  while (!xml.atEnd()) xml.readNext();
  return !xml.hasError();
}

// Every part that is XML, unpacked by the library and read by the toolkit.
void CheckOpenDocument(const QByteArray& bytes) {
  zip_error_t error;
  zip_error_init(&error);
  zip_source_t* source =
      zip_source_buffer_create(bytes.constData(), static_cast<zip_uint64_t>(bytes.size()), 0, &error);
  zip_t* archive = zip_open_from_source(source, ZIP_RDONLY | ZIP_CHECKCONS, &error);
  Require(archive != nullptr, "the container of a document can be opened");
  for (zip_int64_t i = 0; i < zip_get_num_entries(archive, 0); ++i) {
    zip_stat_t entry;
    Require(zip_stat_index(archive, static_cast<zip_uint64_t>(i), 0, &entry) == 0, "its parts are listed");
    if (!QByteArray(entry.name).endsWith(".xml")) continue;
    QByteArray part(static_cast<qsizetype>(entry.size), '\0');
    zip_file_t* file = zip_fopen_index(archive, static_cast<zip_uint64_t>(i), 0);
    Require(file != nullptr && zip_fread(file, part.data(), entry.size) == part.size(),
            "its parts are whole");
    zip_fclose(file);
    Require(IsXml(part), "its parts are XML");
  }
  zip_close(archive);
}

void CheckRtf(const QByteArray& bytes) {
  try {
    ScanRtf(bytes);
  } catch (const RtfError& error) {
    Require(false, error.what());
  }
}

// Without control characters, and blanks counted once, as web pages are read.
QString AsOnPage(const QString& text) { return text.simplified(); }

void CheckHtml(const QByteArray& bytes, const TrussAnalysis& analysis) {
  QTextDocument page;
  page.setHtml(QString::fromUtf8(bytes));
  const QString text = AsOnPage(page.toPlainText());
  for (const CountedJoint& joint : analysis.Counted.Joints.First(analysis.Counted.Joints.Size())) {
    std::string name = joint.Name;
    std::erase_if(name, [](char byte) { return IsControl(byte); });
    Require(text.contains(AsOnPage(ToQt(name))), "names stand on a web page as they are");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  InputBytes input(data, size);
  const int choice = input.Below(3);
  const std::size_t section = static_cast<std::size_t>(input.Below(MostSections + 1));
  const AnalysedFile file = AnalysedSmallTruss(input);
  std::vector<ReportExtra> with;
  if (section < MostSections) {
    constexpr ReportExtra extras[] = {ReportExtra::Forces, ReportExtra::Why, ReportExtra::Steps,
                                      ReportExtra::ByJoint};
    with.push_back(extras[section]);
  }
  const ReportSubject subject{
      .Document = file.Document, .Analysis = file.Analysis, .Numbers = {}, .With = with};
  switch (choice) {
    case 0:
      CheckRtf(ReportFile(subject, DocumentFileFormat::Rtf).value());
      break;
    case 1:
      CheckOpenDocument(ReportFile(subject, DocumentFileFormat::Odt).value());
      break;
    default:
      CheckHtml(ReportFile(subject, DocumentFileFormat::Html).value(), file.Analysis);
  }
  return 0;
}
