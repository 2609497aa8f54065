#ifndef JSONENGINES_H
#define JSONENGINES_H

#include "statechart/json/jsonreader.h"
#include "statechart/json/jsonwriter.h"

#include <QFile>
#include <QJsonDocument>
#include <array>
#include <cstdio>
#include <fstream>
#include <nlohmann/json.hpp>
#include <rapidjson/document.h>
#include <rapidjson/filereadstream.h>
#include <rapidjson/filewritestream.h>
#include <rapidjson/writer.h>
#include <sstream>

// The engine's JSON and its peers, each used as its own documentation shows.

struct Halvorin
{
    using Document = JsonDocument;

    static Document read(const std::string& text)
    {
        std::istringstream input(text);
        return readDocument(input);
    }
    static std::string write(const Document& document) { return toString(document.value()); }

    static Document readFile(const std::string& path)
    {
        std::ifstream input(path);
        return readDocument(input);
    }
    static void writeFile(const Document& document, const std::string& path)
    {
        std::ofstream output(path);
        ::write(output, document.value());
    }
};

struct Nlohmann
{
    using Document = nlohmann::json;

    static Document read(const std::string& text) { return nlohmann::json::parse(text); }
    static std::string write(const Document& document) { return document.dump(); }

    static Document readFile(const std::string& path)
    {
        std::ifstream input(path);
        return nlohmann::json::parse(input);
    }
    static void writeFile(const Document& document, const std::string& path)
    {
        std::ofstream output(path);
        output << document;
    }
};

struct RapidJson
{
    using Document = rapidjson::Document;

    static Document read(const std::string& text)
    {
        rapidjson::Document document;
        document.Parse(text.data(), text.size());
        return document;
    }
    static rapidjson::StringBuffer write(const Document& document)
    {
        rapidjson::StringBuffer buffer;
        rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
        document.Accept(writer);
        return buffer;
    }

    static Document readFile(const std::string& path)
    {
        std::FILE* const file = std::fopen(path.c_str(), "rb");
        std::array<char, 65536> block;
        rapidjson::FileReadStream stream(file, block.data(), block.size());
        rapidjson::Document document;
        document.ParseStream(stream);
        std::fclose(file);
        return document;
    }
    static void writeFile(const Document& document, const std::string& path)
    {
        std::FILE* const file = std::fopen(path.c_str(), "wb");
        std::array<char, 65536> block;
        rapidjson::FileWriteStream stream(file, block.data(), block.size());
        rapidjson::Writer<rapidjson::FileWriteStream> writer(stream);
        document.Accept(writer);
        stream.Flush();
        std::fclose(file);
    }
};

struct QtJson
{
    using Document = QJsonDocument;

    static Document read(const std::string& text)
    {
        return QJsonDocument::fromJson(QByteArray::fromRawData(text.data(), static_cast<int>(text.size())));
    }
    static QByteArray write(const Document& document) { return document.toJson(QJsonDocument::Compact); }

    static Document readFile(const std::string& path)
    {
        QFile file(QFile::decodeName(path.c_str()));
        file.open(QIODevice::ReadOnly);
        return QJsonDocument::fromJson(file.readAll());
    }
    static void writeFile(const Document& document, const std::string& path)
    {
        QFile file(QFile::decodeName(path.c_str()));
        file.open(QIODevice::WriteOnly);
        file.write(document.toJson(QJsonDocument::Compact));
    }
};

#endif
