#pragma once

#include "Components/Drawing/Tokens.h"

#include <initializer_list>

class QHBoxLayout;
class QLayout;
class QVBoxLayout;
class QWidget;

/// Lays out a row with a tile: the tile, the texts beside it, and the controls at the trailing end. Has a
/// row's margins; the caller installs it.
QHBoxLayout *rowLayout(QWidget *tile, QLayout *texts, std::initializer_list<QWidget *> controls = {});

/// Lays out the texts of a row one below the other.
QVBoxLayout *rowTexts(std::initializer_list<QWidget *> texts);

/// The height of a row laid out like this, in points, whose title and subtitle have one line each.
int rowHeight(TextStyle title, TextStyle subtitle);
