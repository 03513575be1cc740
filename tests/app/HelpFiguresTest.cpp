// The figures of the help draw a truss as the program does.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QPointF>
#include <QXmlStreamReader>
#include <algorithm>
#include <cmath>

namespace {

constexpr char LoadColour[] = "#d00000";

struct Arrow {
  QPointF Tail, Tip;
};

// What a figure shows, as far as it concerns loads: a load is a line in their colour and a head behind it.
struct Figure {
  QVector<QPointF> Pins;
  QVector<Arrow> Loads;
  int Heads = 0;
};

Figure ReadFigure(const QString& path) {
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
  Figure figure;
  for (QXmlStreamReader svg(&file); !svg.atEnd(); svg.readNext()) {
    if (!svg.isStartElement()) continue;
    const QXmlStreamAttributes attributes = svg.attributes();
    const auto is = [&](const char* name, const char* value) {
      return attributes.value(QLatin1String(name)) == QLatin1String(value);
    };
    const auto point = [&](const char* x, const char* y) {
      return QPointF(attributes.value(QLatin1String(x)).toDouble(),
                     attributes.value(QLatin1String(y)).toDouble());
    };
    if (svg.name() == QLatin1String("circle")) figure.Pins.append(point("cx", "cy"));
    if (svg.name() == QLatin1String("line") && is("stroke", LoadColour)) {
      figure.Loads.append({point("x1", "y1"), point("x2", "y2")});
    }
    if (svg.name() == QLatin1String("polygon") && is("fill", LoadColour)) ++figure.Heads;
  }
  return figure;
}

double Distance(const QPointF& a, const QPointF& b) { return std::hypot(a.x() - b.x(), a.y() - b.y()); }

double DistanceToAPin(const QPointF& point, const QVector<QPointF>& pins) {
  double nearest = INFINITY;
  for (const QPointF& pin : pins) nearest = std::min(nearest, Distance(point, pin));
  return nearest;
}

TEST(HelpFigures, LoadsHaveTheirTailAtTheJoint) {
  const QDir figures(QStringLiteral(ORVANE_HELP_SOURCES "/figures"));
  qsizetype loads = 0;
  for (const QString& name : figures.entryList({QStringLiteral("truss-*.svg")})) {
    SCOPED_TRACE(name.toStdString());
    const Figure figure = ReadFigure(figures.filePath(name));
    EXPECT_EQ(figure.Heads, figure.Loads.size()) << "loads are drawn as a line and a head";
    for (const Arrow& load : figure.Loads) {
      const double tail = DistanceToAPin(load.Tail, figure.Pins);
      EXPECT_LE(tail, 10);
      EXPECT_LT(tail, DistanceToAPin(load.Tip, figure.Pins)) << "it points at a joint";
    }
    loads += figure.Loads.size();
  }
  EXPECT_GE(loads, 14);
}

}  // namespace
