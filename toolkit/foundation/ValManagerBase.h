#pragma once

// Guards a value server: it sees every requested value first, may refuse it or alter it, and is
// told when a server it manages goes away. It is also a notifier of its own.

#include "qor/Notifier.h"

template <class T>
class ValServer;

template <class T>
class ValManagerBase : public NotifyWithDisable {
public:
    // Answers whether the server may take the value; the value may be corrected in place.
    virtual bool requestValChange(ValServer<T>* server, T& value) = 0;
    // The server is dying and must not be used again.
    virtual void releaseServer(ValServer<T>* server) = 0;
};
