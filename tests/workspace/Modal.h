#pragma once

#include <QWidget>

#include <functional>

/// Calls `answer` with the dialog as soon as one holds the program up that `counts`, any where none is given;
/// to be called before what opens it.
void whenModal(std::function<void(QWidget *dialog)> answer,
               std::function<bool(const QWidget *dialog)> counts = {});
