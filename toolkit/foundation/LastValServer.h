#pragma once

// Remembers the value server made most recently, so that code building a server indirectly can
// find it afterwards. The entry is cleared when that server dies.

#include <atomic>

class ValServerBase;

class LastValServer {
public:
    // The most recently made server that still lives, or null.
    static ValServerBase* getLastValServer();

protected:
    explicit LastValServer(ValServerBase* server);
    LastValServer(LastValServer const&) = delete;
    LastValServer& operator=(LastValServer const&) = delete;
    ~LastValServer();

private:
    ValServerBase* server_;
    static std::atomic<ValServerBase*> last_;
};
