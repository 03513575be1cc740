// The kinds of files that trusses, pictures and documents are written as, told by the ending of the file's
// name.
#pragma once

#include <optional>
#include <string_view>

enum class PictureFileFormat { Png, Svg, Pdf };
enum class DocumentFileFormat { Rtf, Pdf, Odt, Html };

/// Whether it ends with ".trs", in small or capital letters.
bool IsTrussFileName(std::string_view path);

/// ".png", ".svg" and ".pdf", in small or capital letters; nothing for any other ending.
std::optional<PictureFileFormat> PictureFormatOf(std::string_view path);

/// ".rtf", ".pdf", ".odt" and ".html", in small or capital letters; nothing for any other ending.
std::optional<DocumentFileFormat> DocumentFormatOf(std::string_view path);
