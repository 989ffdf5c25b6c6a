// SPDX-License-Identifier: BSD-3-Clause
// What stands inside the diagrams.

#include "Pictures.h"

#include "Diagram.h"
#include "Engineering.h"
#include "SavedFile.h"

#include <ZyHistogram.h>

#include <QBuffer>
#include <QImage>

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{

/** A white picture with a painter on it. */
class Canvas
{
public:
    Canvas(int width, int height) : m_image(width, height, QImage::Format_RGB32)
    {
        m_image.fill(Qt::white);
        m_painter.begin(&m_image);
        m_painter.setRenderHint(QPainter::Antialiasing);
        QFont font(QStringLiteral("DejaVu Sans"));
        font.setPixelSize(15);
        m_painter.setFont(font);
    }
    QPainter & painter() { return m_painter; }
    /** \throws AnalysisError the picture cannot be written */
    void save(QString const & file)
    {
        m_painter.end();
        QBuffer content;
        content.open(QIODevice::WriteOnly);
        constexpr int quick = 80; // the fastest level of packing that packs: half a page of text larger
        m_image.save(&content, "PNG", quick);
        saveFile(file, content.data());
    }

private:
    QImage m_image;
    QPainter m_painter;
};

QString unitOf(MeritFunction const & merit)
{
    return QString::fromUtf8(kindOf(merit).unit);
}

// Prefixes stand before units; a plain number and a number of decibels have none.
bool hasPrefixes(MeritFunction const & merit)
{
    return unitOf(merit) == QStringLiteral("Hz");
}

QString figureText(MeritFunction const & merit, double value)
{
    return hasPrefixes(merit)
               ? engineering(value, 4, unitOf(merit))
               : (QString::number(value, 'g', 4).replace(u'-', QChar(0x2212)) + u' ' + unitOf(merit))
                     .trimmed();
}

Axis figureAxis(MeritFunction const & merit, Spread const & spread)
{
    double const margin = 0.03 * (spread.highest - spread.lowest);
    double const least = margin > 0 ? margin : std::max(std::abs(spread.lowest), 1.0) * 0.01;
    return {merit.title.toQString(), unitOf(merit), spread.lowest - least,
            spread.highest + least,  false,         hasPrefixes(merit)};
}

Axis runAxis(ZyHistogram const & histogram)
{
    unsigned int highest = 1;
    for (ZyHistogram::Bin const & bin : histogram) {
        highest = std::max(highest, bin.frequency());
    }
    return {QStringLiteral("Runs"), QString(), 0, highest * 1.08, false, false};
}

void paintBins(Diagram & diagram, ZyHistogram const & histogram)
{
    diagram.painter().setPen(QPen(palette::line, 1));
    diagram.painter().setBrush(palette::fill);
    for (ZyHistogram::Bin const & bin : histogram) {
        if (bin.frequency() > 0) {
            diagram.painter().drawRect(
                QRectF(diagram.at(bin.minimum(), bin.frequency()), diagram.at(bin.maximum(), 0)));
        }
    }
}

void paintHistogram(QPainter & painter, QRectF const & frame, MeritFunction const & merit,
                    Spread const & spread)
{
    ZyHistogram const histogram(spread.values, binsFor(spread.values.size()));
    QString const heading = QStringLiteral("mean %1,  σ %2")
                                .arg(figureText(merit, spread.mean), figureText(merit, spread.deviation));
    Diagram diagram(painter, frame, heading, figureAxis(merit, spread), runAxis(histogram));
    paintBins(diagram, histogram);
    painter.setPen(QPen(palette::mark, 2, Qt::DashLine));
    double const x = diagram.at(spread.nominal, 0).x();
    painter.drawLine(QPointF(x, diagram.inside().top()), QPointF(x, diagram.inside().bottom()));
}

double decibels(double power)
{
    return 10 * std::log10(std::max(power, std::numeric_limits<double>::min()));
}

// What lies far below is cut off, or it would leave no room for what the runs do to the rest.
Axis gainAxis(Envelope const & envelope)
{
    constexpr double mostDecibels = 60;
    double const highest = decibels(*std::max_element(envelope.highest.begin(), envelope.highest.end()));
    double const lowest = decibels(*std::min_element(envelope.lowest.begin(), envelope.lowest.end()));
    double const range = std::clamp(highest - lowest, 1.0, mostDecibels);
    return {QStringLiteral("Gain"),
            QStringLiteral("dB"),
            highest - 1.05 * range,
            highest + 0.08 * range,
            false,
            false};
}

QPolygonF curve(Diagram const & diagram, std::vector<double> const & frequencies,
                std::vector<double> const & powers)
{
    QPolygonF points;
    for (std::size_t i = 0; i < frequencies.size(); ++i) {
        points.append(diagram.at(frequencies[i], decibels(powers[i])));
    }
    return points;
}

void paintEnvelope(Diagram & diagram, std::vector<double> const & frequencies, Envelope const & envelope)
{
    QPolygonF band = curve(diagram, frequencies, envelope.highest);
    QPolygonF const below = curve(diagram, frequencies, envelope.lowest);
    std::copy(below.rbegin(), below.rend(), std::back_inserter(band));
    diagram.painter().setPen(Qt::NoPen);
    diagram.painter().setBrush(palette::fill);
    diagram.painter().drawPolygon(band);
}

// A small key in the corner that a response leaves free: names of what is painted.
void paintKey(Diagram & diagram, unsigned int runs)
{
    QPainter & painter = diagram.painter();
    double const height = painter.fontMetrics().height();
    double const left = diagram.inside().left() + 16;
    double const bottom = diagram.inside().bottom() - 16;
    painter.setPen(QPen(palette::line, 1.8));
    painter.drawLine(QPointF(left, bottom - 1.5 * height - 4), QPointF(left + 30, bottom - 1.5 * height - 4));
    painter.fillRect(QRectF(left, bottom - height + 3, 30, height - 6), palette::fill);
    painter.setPen(palette::ink);
    painter.drawText(QRectF(left + 40, bottom - 2 * height - 4, 300, height), Qt::AlignLeft,
                     QStringLiteral("nominal"));
    painter.drawText(QRectF(left + 40, bottom - height, 300, height), Qt::AlignLeft,
                     QStringLiteral("all of %1 runs").arg(runs));
}

} // namespace

void paintHistograms(QString const & file, Circuit const & circuit, std::vector<Spread> const & spreads,
                     unsigned int runs)
{
    constexpr int width = 460;
    constexpr int height = 320;
    int const columns = spreads.size() > 1 ? 2 : 1;
    int const rows = (int(spreads.size()) + columns - 1) / columns;
    constexpr int top = 40;
    Canvas canvas(columns * width, rows * height + top);
    canvas.painter().setPen(palette::ink);
    canvas.painter().drawText(
        QRectF(0, 12, columns * width, 24), Qt::AlignHCenter,
        QStringLiteral("%1: %2 runs, dashed: nominal").arg(circuit.title.toQString()).arg(runs));
    for (int i = 0; i < int(spreads.size()); ++i) {
        QRect const frame(i % columns * width, i / columns * height + top, width, height);
        paintHistogram(canvas.painter(), frame, circuit.merits[std::size_t(i)], spreads[std::size_t(i)]);
    }
    canvas.save(file);
}

void paintResponse(QString const & file, Circuit const & circuit, std::vector<double> const & nominal,
                   Envelope const & envelope, unsigned int runs)
{
    Canvas canvas(920, 520);
    std::vector<double> const frequencies = frequenciesOf(circuit.sweep);
    Axis const x{
        QStringLiteral("Frequency"), QStringLiteral("Hz"), circuit.sweep.from, circuit.sweep.to, true, true};
    Diagram diagram(canvas.painter(), QRectF(0, 0, 920, 520), circuit.title.toQString(), x,
                    gainAxis(envelope));
    canvas.painter().setClipRect(diagram.inside());
    paintEnvelope(diagram, frequencies, envelope);
    canvas.painter().setPen(QPen(palette::line, 1.8));
    canvas.painter().drawPolyline(curve(diagram, frequencies, nominal));
    paintKey(diagram, runs);
    canvas.save(file);
}
