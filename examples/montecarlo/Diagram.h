// SPDX-License-Identifier: BSD-3-Clause
// Axes with ticks and labels, painted into a rectangle of a picture.
#pragma once

#include <QPainter>
#include <QString>

#include <vector>

/** One axis: what it shows, and from where to where. */
struct Axis
{
    QString label;
    QString unit; ///< of the numbers at the ticks
    double from = 0;
    double to = 1;
    bool isLogarithmic = false;
    bool hasPrefixes = true; ///< numbers get prefixes, such as 10 k

    /** 0 at the begin, 1 at the end. */
    double place(double value) const;
    /** Round numbers within the axis, about \a wanted of them. */
    std::vector<double> ticks(int wanted) const;
    /** On a logarithmic axis the round numbers between those. */
    std::vector<double> minorTicks() const;
    /** The distance of ticks on a linear axis: 1, 2 or 5 times a power of ten. */
    double step(int wanted) const;
};

/** The colours of all pictures. */
namespace palette
{
inline QColor const ink(0x33, 0x3a, 0x42);
inline QColor const faint(0xd9, 0xde, 0xe3);
inline QColor const faintest(0xf0, 0xf2, 0xf4);
inline QColor const line(0x1f, 0x5f, 0xa8);
inline QColor const fill(0x9c, 0xc3, 0xe8);
inline QColor const mark(0xc2, 0x4a, 0x2c);
} // namespace palette

/** The inside of two axes, ready to be painted in. */
class Diagram
{
public:
    /** Paints heading, grid, ticks and labels. \param frame all the room there is \param painter on loan */
    Diagram(QPainter & painter, QRectF const & frame, QString const & heading, Axis const & x,
            Axis const & y);

    QPointF at(double x, double y) const;
    QRectF const & inside() const { return m_inside; }
    QPainter & painter() { return m_painter; }

private:
    void paintX(QRectF const & frame);
    void paintY(QRectF const & frame);

    QPainter & m_painter;
    Axis m_x;
    Axis m_y;
    QRectF m_inside;
};
