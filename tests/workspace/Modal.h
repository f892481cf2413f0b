#pragma once

#include <QWidget>

#include <functional>
#include <memory>

/// Calls `answer` with the dialog as soon as one holds the program up that `counts`, any where none is given;
/// to be called before what opens it. The case fails when none has come until what is returned goes.
[[nodiscard]] std::shared_ptr<void> whenModal(std::function<void(QWidget *dialog)> answer,
                                              std::function<bool(const QWidget *dialog)> counts = {});
