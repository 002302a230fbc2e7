// Shows products, as an application does that has its own host services:
// reading_room INSTALL-FOLDER LANGUAGE PRODUCT...

#include <docparser/DocParserException.hpp>
#include <docparser/DocResourceParser.hpp>
#include <platform/i18n/Converter.hpp>

#include "ChannelListener.hpp"
#include "ReadingRoomHost.hpp"

#include <cstddef>
#include <exception>
#include <future>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

namespace {

using fl::i18n::to_string;
using fl::i18n::to_ustring;
using reference::docparser::DocParserException;
using reference::docparser::DocResource;
using reference::docparser::DocResourceParser;
using reference::docparser::ResourceMap;
using reference::property::RefItem;

using Resources = ResourceMap<RefItem>;

template <class T>
std::size_t countItems(const DocResource<T>& resource) {
    std::size_t count = 0;
    for (const auto& [key, items] : resource.items)
        count += items.size();
    return count;
}

template <class T>
std::size_t countItems(const ResourceMap<T>& resources) {
    std::size_t count = 0;
    for (const auto& [key, resource] : resources)
        count += countItems(resource);
    return count;
}

// Starts reading each product on its own thread: all operations may run concurrently.
std::vector<std::future<Resources>> readAll(const std::vector<std::u16string>& products) {
    std::vector<std::future<Resources>> readers;
    for (const std::u16string& product : products)
        readers.push_back(
            std::async(std::launch::async, DocResourceParser::getResourceFile, product));
    return readers;
}

void show(const Resources& resources) {
    for (const auto& [key, resource] : resources) {
        std::cout << to_string(resource.header.getProductName()) << ": " << countItems(resource)
                  << " items"
                  << (DocResourceParser::isProductInstalled(key) ? "" : ", not installed") << '\n';
    }
}

// Shows the result of a reader; returns false if the product has no documentation.
bool showProduct(std::future<Resources>& reader) {
    try {
        show(reader.get());
        return true;
    } catch (const DocParserException& missing) {
        std::cerr << "no documentation for " << to_string(missing.getProductName()) << '\n';
        return false;
    }
}

bool run(const std::u16string& installFolder, const std::u16string& language,
         const std::vector<std::u16string>& products) {
    const ChannelListener listener;
    platform::setHostServices(std::make_shared<ReadingRoomHost>(installFolder, language));
    // The default reference root does not depend on the host services, so it is set separately.
    DocResourceParser::setReferenceRoot(installFolder + u"/help");

    auto index = std::async(std::launch::async, DocResourceParser::getResourceLookupFiles);
    bool foundAll = true;
    for (std::future<Resources>& reader : readAll(products))
        foundAll = showProduct(reader) && foundAll;

    const auto lookups = index.get();
    std::cout << "Index: " << countItems(lookups.installed) << " entries of installed products, "
              << countItems(lookups.notInstalled) << " of others\n"
              << "Files tried: " << listener.filesTried() << '\n';
    return foundAll;
}

} // namespace

int main(int argc, char* argv[]) {
    if (argc < 4) {
        std::cerr << "usage: reading_room INSTALL-FOLDER LANGUAGE PRODUCT...\n";
        return 2;
    }
    try {
        std::vector<std::u16string> products;
        for (int i = 3; i < argc; ++i)
            products.push_back(to_ustring(argv[i]));
        return run(to_ustring(argv[1]), to_ustring(argv[2]), products) ? 0 : 1;
    } catch (const std::exception& failure) {
        std::cerr << "reading_room: " << failure.what() << '\n';
        return 3;
    }
}
