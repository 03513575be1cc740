#include "NamedTruss.h"

#include "SmallTruss.h"
#include "naming/Naming.h"

AnalysedFile AnalysedSmallTruss(InputBytes& input) {
  AnalysedFile file;
  file.Argument = "-";
  file.Document = SmallTruss(input);
  for (LabelIndex label = 1; label <= file.Document.NumLabels && !input.IsEmpty(); ++label)
    Rename(file.Document, label, input.TextUpTo('\0'));
  Analyse(file);
  return file;
}
