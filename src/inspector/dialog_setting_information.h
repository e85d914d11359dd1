// The settings that the design tool stored in the loaded image, shown in the order of the tool's own form.
#pragma once

#include <QDialog>

#include <memory>

namespace panel {
struct ConfigBlock;
}
namespace Ui {
class Dialogsettinginformation;
}

/// Nothing can be changed here, and the line edits are for selecting and copying. Owns what the image says
/// about commands: PreviewHeader and PreviewNoCrc. Main thread.
class Dialogsettinginformation : public QDialog {
    Q_OBJECT

public:
    explicit Dialogsettinginformation(QWidget* parent = nullptr);
    ~Dialogsettinginformation() override;

    /// Empties the form.
    void ClearSettings();

public slots:
    /// Shows the image just loaded: nothing for an illegal one, and what was there before for one too short
    /// to be described.
    void DialogInfo_Show_Setting();

private:
    void showGeneral(const panel::ConfigBlock& config);
    void showCommunication(const panel::ConfigBlock& config);
    void showFlash(const panel::ConfigBlock& config);
    void showPanel(const panel::ConfigBlock& config);
    void showApplication(const panel::ConfigBlock& config);

    std::unique_ptr<Ui::Dialogsettinginformation> ui_;
};
