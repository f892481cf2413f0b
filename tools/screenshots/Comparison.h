#pragma once

#include <QImage>

/// How much two pictures differ where they differ most: the largest difference, from 0 to 255, between the
/// average colours of any two squares of so many pixels a side in the same place. With 8 the odd pixel of
/// another rounding does not matter, a moved line or another colour does. 255 for pictures of different
/// sizes.
int perceivedDifference(const QImage &one, const QImage &other, int side = 8);
