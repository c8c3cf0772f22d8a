#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class fLengthEdit;
}

namespace kelvado {

/// "Information Edit": the user shortens a text that does not fit its column.
class fLengthEdit : public QDialog
{
    Q_OBJECT
public:
    /// `column` is the column's name in capitals.
    fLengthEdit(const QString& value, qsizetype size, const QString& column, QWidget* parent);
    ~fLengthEdit() override;

    QString Text() const;

private:
    void ShowLength();

    std::unique_ptr<Ui::fLengthEdit> m_ui;
    qsizetype m_size;
};

} // namespace kelvado
