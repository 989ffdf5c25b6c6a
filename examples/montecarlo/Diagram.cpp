// SPDX-License-Identifier: BSD-3-Clause
// Round numbers, grid lines, texts.

#include "Diagram.h"

#include "Engineering.h"

#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

namespace
{

constexpr int tickDigits = 5;
constexpr int ticksAcross = 6;
constexpr int ticksUp = 6;
constexpr double gap = 8; ///< between a text and what it belongs to, in pixels

QString tickText(Axis const & axis, double value, int wanted)
{
    if (axis.hasPrefixes) {
        return engineering(value, tickDigits, axis.unit);
    }
    int const decimals = std::max(0, -int(std::floor(std::log10(axis.step(wanted)) + 1e-9)));
    // A sum of steps may miss zero by the last digit.
    double const clean = std::abs(value) < 1e-9 * std::abs(axis.to - axis.from) ? 0 : value;
    return QString::number(clean, 'f', decimals).replace(u'-', QChar(0x2212));
}

QString labelText(Axis const & axis)
{
    return axis.unit.isEmpty() || axis.hasPrefixes ? axis.label
                                                   : axis.label + QStringLiteral(" (%1)").arg(axis.unit);
}

} // namespace

double Axis::place(double value) const
{
    return isLogarithmic ? std::log10(value / from) / std::log10(to / from) : (value - from) / (to - from);
}

double Axis::step(int wanted) const
{
    double const rough = (to - from) / wanted;
    double const power = std::pow(10.0, std::floor(std::log10(rough)));
    for (double const factor : {1.0, 2.0, 5.0}) {
        if (factor * power >= rough * 0.999) {
            return factor * power;
        }
    }
    return 10 * power;
}

std::vector<double> Axis::ticks(int wanted) const
{
    std::vector<double> all;
    if (isLogarithmic) {
        int const last = int(std::floor(std::log10(to) + 1e-9));
        for (int decade = int(std::ceil(std::log10(from) - 1e-9)); decade <= last; ++decade) {
            all.push_back(std::pow(10.0, decade));
        }
        return all;
    }
    double const size = step(wanted);
    for (double count = std::ceil(from / size - 1e-9); count * size <= to + 1e-9 * size; ++count) {
        all.push_back(count * size);
    }
    return all;
}

// 2 to 9 times each power of ten.
std::vector<double> Axis::minorTicks() const
{
    std::vector<double> all;
    for (double decade = std::pow(10.0, std::floor(std::log10(from))); isLogarithmic && decade < to;
         decade *= 10) {
        for (int factor = 2; factor < 10; ++factor) {
            if (factor * decade > from && factor * decade < to) {
                all.push_back(factor * decade);
            }
        }
    }
    return all;
}

Diagram::Diagram(QPainter & painter, QRectF const & frame, QString const & heading, Axis const & x,
                 Axis const & y)
    : m_painter(painter), m_x(x), m_y(y)
{
    QFontMetricsF const metrics(painter.font());
    double widest = 0;
    for (double const tick : y.ticks(ticksUp)) {
        widest = std::max(widest, metrics.horizontalAdvance(tickText(y, tick, ticksUp)));
    }
    double const left = widest + metrics.height() + 3 * gap;
    double const bottom = 2 * metrics.height() + 3 * gap;
    m_inside = frame.adjusted(left, metrics.height() + 2 * gap, -5 * gap, -bottom);

    QFont const plain = painter.font();
    QFont bold = plain;
    bold.setBold(true);
    painter.setFont(bold);
    painter.setPen(palette::ink);
    painter.drawText(QRectF(m_inside.left(), frame.top() + gap, m_inside.width(), metrics.height()),
                     Qt::AlignLeft, heading);
    painter.setFont(plain);
    paintX(frame);
    paintY(frame);
}

QPointF Diagram::at(double x, double y) const
{
    return {m_inside.left() + m_x.place(x) * m_inside.width(),
            m_inside.bottom() - m_y.place(y) * m_inside.height()};
}

void Diagram::paintX(QRectF const & frame)
{
    double const height = QFontMetricsF(m_painter.font()).height();
    m_painter.setPen(palette::faintest);
    for (double const tick : m_x.minorTicks()) {
        double const x = m_inside.left() + m_x.place(tick) * m_inside.width();
        m_painter.drawLine(QPointF(x, m_inside.top()), QPointF(x, m_inside.bottom()));
    }
    for (double const tick : m_x.ticks(ticksAcross)) {
        double const x = m_inside.left() + m_x.place(tick) * m_inside.width();
        m_painter.setPen(palette::faint);
        m_painter.drawLine(QPointF(x, m_inside.top()), QPointF(x, m_inside.bottom()));
        m_painter.setPen(palette::ink);
        m_painter.drawText(QRectF(x - 100, m_inside.bottom() + gap, 200, height), Qt::AlignHCenter,
                           tickText(m_x, tick, ticksAcross));
    }
    m_painter.drawText(QRectF(m_inside.left(), frame.bottom() - height - gap, m_inside.width(), height),
                       Qt::AlignHCenter, labelText(m_x));
}

void Diagram::paintY(QRectF const & frame)
{
    double const height = QFontMetricsF(m_painter.font()).height();
    for (double const tick : m_y.ticks(ticksUp)) {
        double const y = m_inside.bottom() - m_y.place(tick) * m_inside.height();
        m_painter.setPen(palette::faint);
        m_painter.drawLine(QPointF(m_inside.left(), y), QPointF(m_inside.right(), y));
        m_painter.setPen(palette::ink);
        m_painter.drawText(QRectF(m_inside.left() - 200 - gap, y - height / 2, 200, height),
                           Qt::AlignRight | Qt::AlignVCenter, tickText(m_y, tick, ticksUp));
    }
    m_painter.save();
    m_painter.translate(frame.left() + gap, m_inside.center().y());
    m_painter.rotate(-90);
    m_painter.drawText(QRectF(-m_inside.height() / 2, 0, m_inside.height(), height), Qt::AlignHCenter,
                       labelText(m_y));
    m_painter.restore();
}
