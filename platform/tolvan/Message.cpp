#include "tolvan/Message.h"

#include "vesta/Exception.h"

#include <nlohmann/json.hpp>

#include <cstdint>

const char* const msg_Hello = "Hello";
const char* const msg_Welcome = "Welcome";
const char* const msg_Job = "Job";
const char* const msg_JobGone = "JobGone";
const char* const msg_Output = "Output";
const char* const msg_Skipped = "Skipped";
const char* const msg_Submit = "Submit";
const char* const msg_Command = "Command";
const char* const msg_Done = "Done";
const char* const msg_Failed = "Failed";
const char* const msg_Shutdown = "Shutdown";

Signal1<const boost::shared_ptr<ShutdownMsg>&> ShutdownMsg::s_Signal;
Signal1<MessageReceivedEvt&>                   MessageReceivedEvt::s_Signal;
Signal1<MessengerConnectedEvt&>                MessengerConnectedEvt::s_Signal;
Signal1<MessengerDisconnectedEvt&>             MessengerDisconnectedEvt::s_Signal;

namespace
{

using Json = nlohmann::json;

// A message on the wire is the MessagePack map {kTypeKey: type, kFieldsKey: {name: value, ...}},
// everything in it a byte string. (MessagePack rather than CBOR: CBOR's strings may nest in one
// another without end, which a recursive reader pays for with its stack.)
const char* const kTypeKey = "type";
const char* const kFieldsKey = "fields";

Json ToBinary(const String& bytes)
{
    return Json::binary(Json::binary_t::container_type(bytes.begin(), bytes.end()));
}

/// Takes the events of the parser and keeps what belongs to a message; anything else ends the
/// parsing at once, so that neither depth nor size of the input can do harm.
class MessageReader : public nlohmann::json_sax<Json>
{
public:
    bool start_object(std::size_t) override
    {
        ++m_Depth;
        if (m_Depth == 2)
        {
            const bool first = m_Key == kFieldsKey && !m_HasFields;
            m_HasFields = true;
            return first;
        }
        return m_Depth == 1;
    }
    bool end_object() override
    {
        --m_Depth;
        return true;
    }
    bool key(string_t& name) override
    {
        m_Key = name;
        return true;
    }
    bool binary(binary_t& bytes) override { return Value(String(bytes.begin(), bytes.end())); }
    // Nobody sends texts, but they can be meant in one way only.
    bool string(string_t& text) override { return Value(text); }

    bool null() override { return false; }
    bool boolean(bool) override { return false; }
    bool number_integer(number_integer_t) override { return false; }
    bool number_unsigned(number_unsigned_t) override { return false; }
    bool number_float(number_float_t, const string_t&) override { return false; }
    bool start_array(std::size_t) override { return false; }
    bool end_array() override { return false; }
    bool parse_error(std::size_t, const std::string&, const Json::exception&) override
    {
        return false;
    }

    bool IsComplete() const { return m_HasType && m_HasFields; }

    String                   m_Type;
    std::map<String, String> m_Fields;

private:
    bool Value(const String& value)
    {
        if (m_Depth == 2)
        {
            return m_Fields.emplace(m_Key, value).second;
        }
        const bool first = m_Depth == 1 && m_Key == kTypeKey && !m_HasType && !value.empty();
        m_Type = value;
        m_HasType = true;
        return first;
    }

    int    m_Depth = 0;
    String m_Key;
    bool   m_HasType = false;
    bool   m_HasFields = false;
};

} // namespace

bool Message::Has(const String& field) const
{
    return m_Fields.count(field) != 0;
}

String Message::Get(const String& field) const
{
    const auto found = m_Fields.find(field);
    return found == m_Fields.end() ? String() : found->second;
}

long long Message::GetInt(const String& field, long long otherwise) const
{
    return Get(field).ToInt(otherwise);
}

Message& Message::Set(const String& field, const String& value)
{
    m_Fields[field] = value;
    return *this;
}

Message& Message::Set(const String& field, long long value)
{
    return Set(field, String::FromInt(value));
}

String Message::Encode() const
{
    Json fields = Json::object();
    for (const auto& [name, value] : m_Fields)
    {
        fields[name] = ToBinary(value);
    }
    const Json  message = {{kTypeKey, ToBinary(m_Type)}, {kFieldsKey, std::move(fields)}};
    std::string bytes;
    Json::to_msgpack(message, bytes);
    return bytes;
}

boost::shared_ptr<Message> Message::Decode(const String& bytes)
{
    MessageReader reader;
    if (!Json::sax_parse(bytes.begin(), bytes.end(), &reader, Json::input_format_t::msgpack) ||
        !reader.IsComplete())
    {
        Exception::Throw("Message", "Decode", ec_BadData,
                         SFormat("%zu bytes came that are no message", bytes.size()));
    }
    const auto message = boost::shared_ptr<Message>(new Message(reader.m_Type));
    message->m_Fields = std::move(reader.m_Fields);
    return message;
}
