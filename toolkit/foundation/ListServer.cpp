#include "foundation/ListServer.h"

#include <algorithm>

ListClientInternal::ListClientInternal(ListServer* server, ListClient* client)
    : server_(server), client_(client) {
    if (server_ != nullptr)
        server_->links_.push_back(this);
}

ListClientInternal::~ListClientInternal() {
    if (server_ != nullptr)
        std::erase(server_->links_, this);
}

ListClient::~ListClient() = default;

ListClientInternal* ListClient::allocInternalNotifiable(ListServer* server) {
    return new ListClientInternal(server, this);
}

void ListClient::connectToListServer(ListServer* server) {
    link_.reset();
    if (server != nullptr)
        link_.reset(allocInternalNotifiable(server));
}

ListServer* ListClient::getListServer() const {
    return link_ ? link_->getServer() : nullptr;
}

ListServer::~ListServer() {
    for (ListClientInternal* link : links_)
        link->server_ = nullptr;
}

template <class Fn>
void ListServer::forEachClient(Fn fn) {
    std::vector<ListClientInternal*> const links = links_;
    for (ListClientInternal* link : links)
        if (isLinked(link))
            fn(*link->client_);
}

bool ListServer::isLinked(ListClientInternal const* link) const {
    return std::find(links_.begin(), links_.end(), link) != links_.end();
}

void ListServer::notifyItemAdded(unsigned int index) {
    forEachClient([index](ListClient& client) { client.itemAdded(index); });
}

void ListServer::notifyItemDeleted(unsigned int index) {
    forEachClient([index](ListClient& client) { client.itemDeleted(index); });
}

void ListServer::notifyItemUpdated(unsigned int index) {
    forEachClient([index](ListClient& client) { client.itemUpdated(index); });
}

void ListServer::notifyItemsUpdated() {
    forEachClient([](ListClient& client) { client.itemsUpdated(); });
}
