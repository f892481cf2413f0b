#pragma once

class QWidget;

/// Every component in every state, one group for each.
QWidget *makeGallery();

/// Every symbol that we draw, at every text size the window uses.
QWidget *makeSymbolSheet();
