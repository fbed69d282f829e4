#pragma once

// Change notification for lists: a ListServer tells its clients that items were added, deleted or
// updated. Each client is linked through a ListClientInternal, which the server keeps and which
// either side may outlive: the server's end cuts every link, and a client's end takes its link
// out of the server.

#include <memory>
#include <vector>

class ListClient;
class ListServer;

class ListClientInternal {
public:
    // Joins the server's clients; a null server makes a link to nothing.
    ListClientInternal(ListServer* server, ListClient* client);
    ListClientInternal(ListClientInternal const&) = delete;
    ListClientInternal& operator=(ListClientInternal const&) = delete;
    virtual ~ListClientInternal();

    ListServer* getServer() const { return server_; }
    ListClient* getClient() const { return client_; }

private:
    friend class ListServer;

    ListServer* server_;
    ListClient* client_;
};

class ListClient {
public:
    ListClient() = default;
    ListClient(ListClient const&) = delete;
    ListClient& operator=(ListClient const&) = delete;
    virtual ~ListClient();

    virtual void itemAdded(unsigned int /*index*/) {}
    virtual void itemDeleted(unsigned int /*index*/) {}
    virtual void itemUpdated(unsigned int /*index*/) {}
    virtual void itemsUpdated() {}
    virtual ListClientInternal* allocInternalNotifiable(ListServer* server);

    // Links to the server, ending an earlier link; null just ends it.
    void connectToListServer(ListServer* server);
    ListServer* getListServer() const;

private:
    std::unique_ptr<ListClientInternal> link_;
};

class ListServer {
public:
    ListServer() = default;
    ListServer(ListServer const&) = delete;
    ListServer& operator=(ListServer const&) = delete;
    // Cuts every link; the clients stay, unlinked.
    virtual ~ListServer();

    // Each tells every linked client, in order of linking. A client that a notification unlinks
    // or destroys is passed over.
    void notifyItemAdded(unsigned int index);
    void notifyItemDeleted(unsigned int index);
    void notifyItemUpdated(unsigned int index);
    void notifyItemsUpdated();

    std::size_t clientCount() const { return links_.size(); }

private:
    friend class ListClientInternal;

    template <class Fn>
    void forEachClient(Fn fn);
    bool isLinked(ListClientInternal const* link) const;

    std::vector<ListClientInternal*> links_;
};
