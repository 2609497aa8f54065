#ifndef TESTCLIENT_H
#define TESTCLIENT_H

#include "languageclient/lspabstractclient.h"

/// A client that can do nothing in particular, and may be told to fail.
class TestClient : public Halvorin::LSP::LSPAbstractClient
{
public:
    Halvorin::LSP::LSPClientCapabilities clientCapabilities() const override
    {
        if (capabilitiesFailure)
            throw std::runtime_error("no capabilities");
        return {};
    }

    QJsonValue configurationValue(const Halvorin::LSP::LSPConfigurationItem& item) const override
    {
        if (configurationFailure)
            configurationFailure();
        return LSPAbstractClient::configurationValue(item);
    }

    bool capabilitiesFailure = false;
    void (*configurationFailure)() = nullptr;
};

#endif
