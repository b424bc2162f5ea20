// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <vector>

// What a server publishes under each topic, in the order of subscription: one entity that has every key.
struct PublishedDocument
{
    QByteArray topic;
    QByteArray entity;

    QByteArray document() const { return list(entity); }

    static QByteArray list(const QByteArray &entities, const QByteArray &version = "4.5.2")
    {
        return R"({"data":[)" + entities + R"(],"server_version":")" + version + R"("})";
    }
};

inline const std::vector<PublishedDocument> &publishedDocuments()
{
    static const std::vector<PublishedDocument> documents{
        {"device_states", R"({"type":"device_state","id":"{11111111-1111-1111-1111-111111111111}",
            "attributes":{"state":{"power":40,"on":true,"name":"Лампа","levels":[1,2.5],"sensor":{"lux":7}}}})"},
        {"device_types/ru_RU", R"({"type":"device_type","id":"drivers:lamp.js","attributes":{
            "name":"Лампа","sort_order":1,"tags":["a"],"common_type":"lamp","unique_address":true,
            "parameters":[
                {"identificator":"power","access":"in/out","type":"int","def":5,"min":0,"max":100},
                {"identificator":"m","type":"choice","items":["a","b"],"def":1},
                {"identificator":"n","type":"string","minLength":1,"maxLength":9,"validator":"a+","def":"a"},
                {"identificator":"l","type":"array","element":{"type":"double","min":0,"max":1},"minLength":0,
                 "maxLength":4}],
            "state":[{"identificator":"t","type":"double","def":1.5},{"identificator":"on","type":"bool","def":true}],
            "statistics":{"group":"zone","interface":"Lamp.qml","fields":[{"name":"a","type":"double"}]}}})"},
        {"action_nodes/ru_RU", R"({"type":"node_description","id":"Compare","attributes":{
            "name":"Сравнение","description":"Сравнивает","category":"Логика",
            "inputs":[{"name":"a","description":"A","acceptedTypes":["double","integer"],"linkedProperty":"p",
                       "defaultValue":{"type":"double","value":1.5}}],
            "outputs":[{"name":"r","description":"R","acceptedTypes":["bool"],"linkedProperty":"",
                        "defaultValue":{"type":"void"}}],
            "properties":[{"name":"p","description":"P","defaultValue":{"type":"integer","value":5},
                           "valueLimits":{"type":"integer","min":0,"max":10}},
                          {"name":"l","description":"L","defaultValue":{"type":"list","value":[]},
                           "valueLimits":{"type":"list","minLength":0,"maxLength":4,"listType":"double",
                                          "elementLimits":{"type":"double","min":0,"max":1}}}]}})"},
        {"button_states",
         R"({"type":"button_state","id":"{11111111-1111-1111-1111-111111111111}","attributes":{"state":1}})"},
        {"device_modes",
         R"({"type":"device_mode","id":"{11111111-1111-1111-1111-111111111111}","attributes":{"mode":"Manual"}})"},
        {"users", R"({"type":"user","id":"admin","attributes":{"login":"admin","group":"admin",
            "zones_whitelist":["{11111111-1111-1111-1111-111111111111}"],"access_list":["a"],"password":"c2VjcmV0"}})"},
        {"settings", R"({"type":"settings","id":"1","attributes":{
            "pwm":{"100":250,"80":200,"60":150,"40":100,"20":50,"0":5},
            "mrf":[{"pan":1,"address":7,"channel":26,"duty_cycle":"duty100"}],
            "radio":{"pan":1,"address":7,"channel":26,"duty_cycle":"duty100"},
            "lora":[{"frequency":868000000,"power":-3,"bandwidth":6,"spreading_factor":12,"coding_rate":8,"address":9,
                     "port_name":"ttyS1","duty_cycle":"duty33","maximum_reply_length":128}],
            "rs485":[{"address":10,"speed":115200,"reply_wait_time":20,"duty_cycle":"duty25","port_name":"COM3"}]}})"},
        {"shop_parts",
         R"({"type":"shop_part","id":"{11111111-1111-1111-1111-111111111111}","attributes":{"name":"Этаж"}})"},
        {"zones", R"({"type":"zone","id":"{11111111-1111-1111-1111-111111111111}","attributes":{
            "part_uid":"{22222222-2222-2222-2222-222222222222}","name":"Холл","x":1.5,"y":2,"width":30,"height":40}})"},
        {"buttons", R"({"type":"button","id":"{11111111-1111-1111-1111-111111111111}","attributes":{
            "part_uid":"{22222222-2222-2222-2222-222222222222}","name":"Свет","x":1.5,"y":2,"width":30,"height":40,
            "on_color":"red","off_color":"gray","toggle":true,
            "blueprints":[{"blueprint":"{44444444-4444-4444-4444-444444444444}",
                "properties":[{"node":"{55555555-5555-5555-5555-555555555555}","property":"power",
                               "value":{"type":"double","value":40}}],
                "zones":["{33333333-3333-3333-3333-333333333333}"]}]}})"},
        {"indicators", R"({"type":"indicator","id":"{11111111-1111-1111-1111-111111111111}","attributes":{
            "part_uid":"{22222222-2222-2222-2222-222222222222}","indicator_type":1,"label":"Тепло","icon":"alert/error",
            "x":1.5,"y":2,"width":30,"height":40,"text_color":"red","icon_color":"blue","horizontal_alignment":2,
            "display_value_device":"{33333333-3333-3333-3333-333333333333}","display_value_property":"t"}})"},
        {"devices", R"({"type":"device","id":"{11111111-1111-1111-1111-111111111111}","attributes":{
            "url":"Lamp.qml","zone_uid":"{22222222-2222-2222-2222-222222222222}","version":1,"address":7,
            "persistentData":{"name":"Лампа"},"radio_type":"lora","radio_index":2}})"},
        {"blueprints/ru_RU", R"({"type":"action_blueprint","id":"{11111111-1111-1111-1111-111111111111}","attributes":{
            "name":"Вечер","system":true,
            "nodes":[{"uid":"{22222222-2222-2222-2222-222222222222}","type":"Compare","x":1.5,"y":2,
                "inputs":[{"name":"a","connection_node":"{33333333-3333-3333-3333-333333333333}",
                           "connection_property":"r"}],
                "outputs":[{"name":"r"}],
                "properties":[{"name":"p","user_description":"P","value":{"type":"integer","value":5},
                               "value_limits":{"type":"integer","min":0,"max":10},"exposed":true,
                               "global_name":"g"}]}]}})"},
        {"schedules", R"({"type":"schedule_day","id":"{11111111-1111-1111-1111-111111111111}",
            "attributes":{"name":"Будни","week_days":[0,1,2],
                "points":[{"time":"08:30:00","blueprints":[{"blueprint":"{44444444-4444-4444-4444-444444444444}",
                                                            "properties":[],"zones":[]}]}]},
            "relationships":{"zones":{"data":[
                {"type":"zone","id":"{33333333-3333-3333-3333-333333333333}","meta":{}}]}}})"},
        {"image_items", R"({"type":"image_item","id":"{11111111-1111-1111-1111-111111111111}","attributes":{
            "part_uid":"{22222222-2222-2222-2222-222222222222}","name":"План","x":1.5,"y":2,"width":30,"height":40,
            "crop_x":5,"crop_y":6,"crop_width":7,"crop_height":8,"opacity":0.5,"on_top":true,"locked":true}})"},
        {"indicator_states", R"({"type":"indicator_state","id":"{11111111-1111-1111-1111-111111111111}",
            "attributes":{"opacity":0.5,"icon":"alert/error","icon_color":"red","text":"Авария",
                          "text_color":"white"}})"},
        {"view_3d_items", R"({"type":"view_3d_item","id":"{11111111-1111-1111-1111-111111111111}","attributes":{
            "part_uid":"{22222222-2222-2222-2222-222222222222}","name":"Станок","x":1.5,"y":2,"z":3,
            "scale_x":4,"scale_y":5,"scale_z":6,"rotation_x":7,"rotation_y":8,"rotation_z":9,"opacity":0.5,
            "locked":true}})"},
        {"power_on_statistics", R"({"type":"device_power_on_info","id":"{11111111-1111-1111-1111-111111111111}",
            "attributes":{"power_on_hours":12.5,"last_update":"2026-01-02T03:04:05"}})"},
    };
    return documents;
}
