#pragma once

// What tests of buttons and check boxes stand on: a window panel that records what its children
// tell it, and an adaptor that binds value widgets to a ValServer.

#include "foundation/ValClient.h"
#include "foundation/ValWidget.h"
#include "glob/GlobManager.h"
#include "panels/StandardPanel.h"

#include <functional>
#include <string>
#include <vector>

class RecordingPanel : public StandardPanel {
public:
    using StandardPanel::StandardPanel;

    int handleMessageEvent(LightweightString<char> name, Glob* sender) override {
        messages.push_back(name.c_str());
        senders.push_back(sender);
        if (onMessage)
            onMessage(name.c_str(), sender);
        return 1;
    }
    int handleDataMessageEvent(LightweightString<char> name, Glob* sender,
                               Qor::Ptr<iObject> data) override {
        dataMessages.push_back(name.c_str());
        senders.push_back(sender);
        lastData = data;
        return 1;
    }
    // Mouse events that reached the panel unused; they go on as usual.
    int handleMouseEvent(Event const& event) override {
        mouseCodes.push_back(event.type);
        if (mouse_wheel_event(event))
            ++wheels;
        return 0;
    }
    int handlePoot() override {
        ++poots;
        return allowPoot ? 1 : 0;
    }
    void handleFlipSize() override { ++flips; }

    std::vector<std::string> messages;
    std::vector<std::string> dataMessages;
    std::vector<Glob*> senders;
    Qor::Ptr<iObject> lastData;
    std::vector<int> mouseCodes;
    int wheels = 0;
    int poots = 0;
    int flips = 0;
    bool allowPoot = true;
    std::function<void(std::string const&, Glob*)> onMessage;
};

// A realized window panel at (100, 100).
inline RecordingPanel* makeRecordingWindow(XY<int> const& size = {400, 300}) {
    Glob::setupRootPos({100, 100});
    auto* panel =
        new RecordingPanel(StandardPanel::InitArgs((unsigned short)size.x, (unsigned short)size.y));
    GlobManager::instance().realize(panel);
    return panel;
}

// Passes requests to the server, notes their kinds, and shows every change of the server.
template <class T>
class ServerAdaptor : public ValAdaptorBase<T>, public ValClient<T> {
public:
    explicit ServerAdaptor(ValServer<T>* server) { this->registerWith(server); }

    T getDataValue() override { return this->getServerValue(); }
    int requestSetNewDataValue(T const& value, DataChangeType type) override {
        types.push_back(type);
        this->setServerValue(value);
        return 1;
    }
    void valChangedNtfy() override { this->setNewWidgetValue(this->getServerValue(), Redraw); }

    std::vector<DataChangeType> types;
};
