// SPDX-License-Identifier: GPL-3.0-or-later
// Buttons, indicators, pictures and meshes.
#include "demo/BlueprintRunner.h"
#include "demo/RecordChecks.h"
#include "demo/RecordRequests.h"
#include "model/json/Button.h"
#include "model/json/ButtonState.h"
#include "model/json/ImageItem.h"
#include "model/json/Indicator.h"
#include "model/json/View3DItem.h"

#include <cmath>

namespace Demo {

namespace {

using Kind = RequestReader::Kind;
using JsonAPI::Entity;
using JsonAPI::Errors;
using JsonAPI::Request;
using JsonAPI::Response;
using State = Model::ButtonState::State;

constexpr int largestPicture = 32 * 1024 * 1024;
constexpr int largestMesh = 128 * 1024 * 1024;
constexpr qint64 largestStore = 256LL * 1024 * 1024; // all pictures and meshes of the site

const Model::Button *findButton(const DemoSite &site, const QUuid &uid)
{
    const auto *button = site.button(uid);
    return button ? &button->button : nullptr;
}

const Model::Indicator *findIndicator(const DemoSite &site, const QUuid &uid)
{
    const auto *indicator = site.indicator(uid);
    return indicator ? &indicator->indicator : nullptr;
}

const Model::ImageItem *findImage(const DemoSite &site, const QUuid &uid)
{
    const auto *image = site.image(uid);
    return image ? &image->item : nullptr;
}

const Model::View3DItem *findView3DItem(const DemoSite &site, const QUuid &uid)
{
    return site.view3DItem(uid);
}

template <typename Record>
void checkRecord(const Context &context, const Record &record, Errors &errors)
{
    RecordChecks::references(References::of(context.site), record, errors);
}

const RecordKind<Model::Button> &buttonKind()
{
    static const RecordKind<Model::Button> kind{
        "button",  JsonAPI::Button::toVariant, JsonAPI::Button::fromVariant, RecordChecks::button, checkRecord,
        findButton};
    return kind;
}

const RecordKind<Model::Indicator> &indicatorKind()
{
    static const RecordKind<Model::Indicator> kind{"indicator",
                                                   JsonAPI::Indicator::toVariant,
                                                   JsonAPI::Indicator::fromVariant,
                                                   RecordChecks::indicator,
                                                   checkRecord,
                                                   findIndicator,
                                                   true,
                                                   {"display_value_device", "display_value_property"}};
    return kind;
}

const RecordKind<Model::ImageItem> &imageKind()
{
    static const RecordKind<Model::ImageItem> kind{"image_item",
                                                   JsonAPI::ImageItem::toVariant,
                                                   JsonAPI::ImageItem::fromVariant,
                                                   RecordChecks::imageItem,
                                                   checkRecord,
                                                   findImage,
                                                   false};
    return kind;
}

const RecordKind<Model::View3DItem> &view3DKind()
{
    static const RecordKind<Model::View3DItem> kind{"view_3d_item",
                                                    JsonAPI::View3DItem::toVariant,
                                                    JsonAPI::View3DItem::fromVariant,
                                                    RecordChecks::view3DItem,
                                                    checkRecord,
                                                    findView3DItem,
                                                    false};
    return kind;
}

Outcome putButtons(Context &context, const Request &request)
{
    return putRecords(context, request, buttonKind());
}

Outcome removeButtons(Context &context, const Request &request)
{
    return removeRecords(context, request, buttonKind(), &DemoSite::removeButtons);
}

Outcome putIndicators(Context &context, const Request &request)
{
    return putRecords(context, request, indicatorKind());
}

Outcome removeIndicators(Context &context, const Request &request)
{
    return removeRecords(context, request, indicatorKind(), &DemoSite::removeIndicators);
}

Outcome changeImages(Context &context, const Request &request)
{
    return putRecords(context, request, imageKind());
}

Outcome removeImages(Context &context, const Request &request)
{
    return removeRecords(context, request, imageKind(), &DemoSite::removeImages);
}

Outcome changeView3DItems(Context &context, const Request &request)
{
    return putRecords(context, request, view3DKind());
}

Outcome removeView3DItems(Context &context, const Request &request)
{
    return removeRecords(context, request, view3DKind(), &DemoSite::removeView3DItems);
}

void checkButtonState(const Context &context, const Entity &entity, Errors &errors)
{
    RequestReader::check(entity, "button_state", {{"state", Kind::Integer}}, errors);
    const auto state = entity.attributes.value("state");
    if (!RequestReader::isOfKind(state, Kind::Integer) || state.toInt() < 0 || state.toInt() > 1)
        RequestErrors::invalidData(errors, QStringLiteral("\"state\" of \"%1\"").arg(entity.id));
    if (!context.site.button(QUuid(entity.id)))
        RequestErrors::unknownRecord(errors, entity.id);
}

bool mayPress(const Model::UserInfo &user, const Model::Button &button)
{
    const auto &instances = button.blueprints.instances;
    return std::all_of(instances.begin(), instances.end(), [&user](const auto &instance) {
        return std::all_of(instance.zones.begin(), instance.zones.end(),
                           [&user](const auto &zone) { return user.hasAccess(zone); });
    });
}

// A press runs what the button is there for. Letting a toggle button out undoes nothing.
Outcome pressButtons(Context &context, const Request &request)
{
    Errors errors;
    if (request.data.size() > mostRecords)
        RequestErrors::invalidData(errors, QStringLiteral("%1 entities").arg(request.data.size()));
    for (const auto &entity : request.data)
        checkButtonState(context, entity, errors);
    if (!errors.isEmpty())
        return RequestErrors::response(errors);
    for (const auto &entity : request.data) {
        if (!mayPress(request.user, context.site.button(QUuid(entity.id))->button))
            return Response::Prepared::accessDenied();
    }

    BlueprintRunner runner(context.site, context.clock.now());
    std::vector<Model::Result> results;
    for (const auto &entity : request.data) {
        const auto told = JsonAPI::ButtonState::fromVariant(entity);
        const auto known = *context.site.button(told.uid); // a copy: what it runs may press others
        context.site.setButtonState(told.uid, told.state);
        if (told.state == State::On && known.state == State::Off) {
            runner.run(known.button.blueprints);
            context.note(JournalTexts::buttonPressed(known.button.name));
        }
        results.push_back(Model::Result::changed(told.uid));
    }
    return Response("button_state", results);
}

template <typename Record>
const Record *named(const DemoSite &site, const Request &request, const Record *(DemoSite::*find)(const QUuid &) const,
                    Errors &errors)
{
    const auto id = request.id.value_or(QString());
    const auto *record = (site.*find)(QUuid(id));
    if (!record)
        RequestErrors::unknownRecord(errors, id);
    return record;
}

Outcome getImage(Context &context, const Request &request)
{
    Errors errors;
    const auto *image = named(context.site, request, &DemoSite::image, errors);
    if (!image)
        return RequestErrors::response(errors);
    ZmqBinaryMessage file;
    file.add("image", image->image.data);
    file.add("format", image->image.format.toUtf8());
    return file;
}

Outcome getView3DItem(Context &context, const Request &request)
{
    Errors errors;
    const auto *item = named(context.site, request, &DemoSite::view3DItem, errors);
    if (!item)
        return RequestErrors::response(errors);
    ZmqBinaryMessage file;
    JsonAPI::View3DItem::toBinaryMessage(file, *item);
    return file;
}

// Entries of an upload, read to the letter; what is missing or of another kind is complained of.
class UploadReader
{
public:
    UploadReader(const ZmqBinaryMessage &message, Errors &errors)
        : m_message(message)
        , m_errors(errors)
    {}

    QByteArray file(const char *key, int largest)
    {
        const auto bytes = entry(key);
        if (bytes.isEmpty() || bytes.size() > largest)
            RequestErrors::invalidData(m_errors, QStringLiteral("%1 bytes of \"%2\"").arg(bytes.size()).arg(key));
        return bytes;
    }

    QUuid uid(const char *key)
    {
        constexpr int length = 16;
        const auto bytes = entry(key);
        if (bytes.size() != length)
            complain(key);
        return QUuid::fromRfc4122(bytes);
    }

    double number(const char *key)
    {
        bool good = false;
        const double value = entry(key).toDouble(&good);
        if (good && std::isfinite(value))
            return value;
        complain(key);
        return 0;
    }

    QString text(const char *key)
    {
        if (!m_message.get(key))
            complain(key);
        return QString::fromUtf8(entry(key));
    }

private:
    QByteArray entry(const char *key) const
    {
        const auto *value = m_message.get(key);
        return value ? *value : QByteArray();
    }

    void complain(const char *key)
    {
        RequestErrors::invalidData(m_errors, QStringLiteral("\"%1\"").arg(QLatin1String(key)));
    }

    const ZmqBinaryMessage &m_message;
    Errors &m_errors;
};

void checkStore(const DemoSite &site, qint64 added, Errors &errors)
{
    if (site.storedFileBytes() + added > largestStore)
        RequestErrors::storeFull(errors, QStringLiteral("%1 bytes").arg(added));
}

Outcome uploadImage(Context &context, const ZmqBinaryMessage &message)
{
    Errors errors;
    UploadReader reader(message, errors);
    Model::ImageItem item;
    item.uid = QUuid::createUuid();
    item.partUid = reader.uid("part_uid");
    item.image = Model::ImageItem::Image(reader.file("image", largestPicture), reader.text("format"));
    item.x = reader.number("x");
    item.y = reader.number("y");
    item.width = reader.number("width");
    item.height = reader.number("height");
    item.name = reader.text("name");
    if (errors.isEmpty())
        checkRecord(context, item, errors);
    if (errors.isEmpty())
        checkStore(context.site, item.image->data.size(), errors);
    if (!errors.isEmpty())
        return RequestErrors::response(errors);
    context.site.put(item);
    return Response("image_item", {Model::Result::added(item.uid)});
}

// A mesh under a known uid takes the place of the one there.
Outcome uploadView3DItem(Context &context, const ZmqBinaryMessage &message)
{
    Errors errors;
    UploadReader reader(message, errors);
    reader.uid("uid");
    reader.uid("part_uid");
    reader.text("name");
    for (const auto *key : {"x", "y", "z", "scale_x", "scale_y", "scale_z", "rotation_x", "rotation_y", "rotation_z",
                            "opacity", "locked"})
        reader.number(key);
    reader.file("model_data", largestMesh);
    if (!errors.isEmpty())
        return RequestErrors::response(errors);
    auto item = JsonAPI::View3DItem::fromBinaryMessage(message);
    if (item.uid.isNull())
        item.uid = QUuid::createUuid();
    checkRecord(context, item, errors);
    const auto *known = context.site.view3DItem(item.uid);
    checkStore(context.site, item.modelData.size() - (known ? known->modelData.size() : 0), errors);
    if (!errors.isEmpty())
        return RequestErrors::response(errors);
    const auto result = known ? Model::Result::changed(item.uid) : Model::Result::added(item.uid);
    context.site.put(item);
    return Response("view_3d_item", {result});
}

} // namespace

const std::vector<Resource> &planResources()
{
    using Method = Request::Method;
    static const std::vector<Resource> resources{
        {"button_states", Method::Post, Access::User, pressButtons},
        {"buttons", Method::Post, Access::Admin, putButtons},
        {"buttons", Method::Delete, Access::Admin, removeButtons},
        {"image_items", Method::Get, Access::User, getImage, true},
        {"image_items", Method::Post, Access::Admin, changeImages},
        {"image_items", Method::Delete, Access::Admin, removeImages},
        {"indicators", Method::Post, Access::Admin, putIndicators},
        {"indicators", Method::Delete, Access::Admin, removeIndicators},
        {"view_3d_items", Method::Get, Access::User, getView3DItem, true},
        {"view_3d_items", Method::Post, Access::Admin, changeView3DItems},
        {"view_3d_items", Method::Delete, Access::Admin, removeView3DItems},
    };
    return resources;
}

const std::vector<Upload> &planUploads()
{
    static const std::vector<Upload> rows{
        {"image_items", Access::Admin, uploadImage},
        {"view_3d_items", Access::Admin, uploadView3DItem},
    };
    return rows;
}

} // namespace Demo
