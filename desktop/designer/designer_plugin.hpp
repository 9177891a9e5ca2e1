// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

namespace vkr {

// Puts VKRDataEntryWidget into the widget box of Qt Designer, and makes it for programs that load
// forms while they run.
class DesignerPlugin final : public QObject, public QDesignerCustomWidgetInterface {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QDesignerCustomWidgetInterface_iid)
    Q_INTERFACES(QDesignerCustomWidgetInterface)

  public:
    explicit DesignerPlugin(QObject* parent = nullptr);

    [[nodiscard]] QString name() const override;
    [[nodiscard]] QString group() const override;
    [[nodiscard]] QString toolTip() const override;
    [[nodiscard]] QString whatsThis() const override;
    [[nodiscard]] QString includeFile() const override;
    [[nodiscard]] QIcon icon() const override;
    [[nodiscard]] bool isContainer() const override { return false; }
    [[nodiscard]] QString domXml() const override;
    [[nodiscard]] QWidget* createWidget(QWidget* parent) override;

    // Form loaders never call it: that is how the two are told apart.
    [[nodiscard]] bool isInitialized() const override { return isInDesigner_; }
    void initialize(QDesignerFormEditorInterface* core) override;

  private:
    bool isInDesigner_ = false;
};

} // namespace vkr
