#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""A server written from the bytes alone, with another library binding and another JSON writer than the program's.

It tells on standard output, one JSON object a line, what it sees; commands come on standard input, one word a line:
publish (each list once), mute (answer nothing from now on), speak, and the end of the input ends it.
"""
import json
import struct
import sys
import time
import zlib

try:
    import zmq
except ImportError as error:
    sys.exit("python3-zmq is missing (apt-get install python3-zmq): %s" % error)

RAW, JSON, COMPRESSED = 1, 2, 4
HALL = "{11111111-1111-1111-1111-111111111111}"
PART = "{22222222-2222-2222-2222-222222222222}"

LISTS = {
    "device_states": [("device_state", HALL, {"state": {"power": 40, "brightness": 12.5}})],
    "device_types/ru_RU": [("device_type", "Lamp.qml", {
        "name": "Лампа", "description": "Светильник", "common_type": "lamp", "locale": "ru_RU", "sort_order": 3,
        "tags": ["light"], "unique_address": True, "custom_address": "",
        "parameters": [{"identificator": "min", "description": "Минимум", "access": "in/out", "type": "int",
                        "min": 0, "max": 100, "def": 10}],
        "state": [], "statistics": {"group": "zone", "interface": "Lamp.qml", "fields": []}})],
    "device_modes": [("device_mode", HALL, {"mode": "Manual"})],
    "users": [("user", "admin", {"login": "admin", "group": "admin", "zones_whitelist": None, "access_list": None})],
    "shop_parts": [("shop_part", PART, {"name": "Первый этаж"})],
    "zones": [("zone", HALL, {"part_uid": PART, "name": "Холл", "x": 10, "y": 20.5, "width": 300, "height": 200})],
    "devices": [("device", HALL, {"url": "Lamp.qml", "zone_uid": HALL, "version": 1, "address": 17,
                                  "persistentData": {"name": "Лампа 1"}, "radio_type": "mrf", "radio_index": 0})],
    # Lists of later screens: they must do no harm.
    "action_nodes/ru_RU": [("node_description", "n", {"name": "Узел"})],
    "button_states": [("button_state", HALL, {"state": 1})],
    "settings": [("settings", "1", {})],
    "blueprints/ru_RU": [],
}

started = time.monotonic()


def tell(event, **fields):
    fields["event"] = event
    fields["ms"] = int((time.monotonic() - started) * 1000)
    sys.stdout.write(json.dumps(fields) + "\n")
    sys.stdout.flush()


def document(entities, **more):
    data = []
    for kind, uid, attributes in entities:
        data.append({"attributes": attributes, "id": uid, "type": kind})
    return json.dumps(dict(more, data=data, server_version="4.5.2"), ensure_ascii=False).encode("utf-8")


def packed(text):
    return struct.pack(">I", len(text)) + zlib.compress(text)


def reply_to(resource, method):
    if resource == "auth":
        return document([("auth", "1", {"group": "admin"})])
    if resource == "ping":
        return document([("ping", "2026-01-02T03:04:05Z", {})])
    if resource == "system_time":
        return document([("time_info", "1767323045000", {
            "time": "2026-01-02T03:04:05Z", "timezone": "Europe/Moscow", "ntp": True, "timezones_list": ["UTC"]})])
    if resource == "zones" and method == "POST":
        entity = {"type": "response", "id": "1", "relationships": {
            "added": {"data": [{"type": "zone", "id": HALL, "meta": {}}]}}}
        return json.dumps({"data": entity, "server_version": "4.5.2"}).encode("utf-8")
    return json.dumps({"errors": [{"code": "unknown_resource", "title": "нет", "detail": resource}],
                       "server_version": "4.5.2"}).encode("utf-8")


def main():
    context = zmq.Context()
    control = context.socket(zmq.ROUTER)
    update = context.socket(zmq.XPUB)
    control_port = control.bind_to_random_port("tcp://127.0.0.1")
    update_port = update.bind_to_random_port("tcp://127.0.0.1")
    poller = zmq.Poller()
    for source in (control, update, sys.stdin):
        poller.register(source, zmq.POLLIN)
    tell("ready", control=control_port, update=update_port)

    mute = False
    pack_next = False
    while True:
        for source, _ in poller.poll():
            if source is control:
                frames = control.recv_multipart()
                peer, delimiter, header, body = frames  # four, or this peer does not understand the other
                version, flags = struct.unpack_from("BB", header)
                resource, counter = header[2:].decode("ascii").rsplit(":", 1)
                if flags & COMPRESSED:
                    size, = struct.unpack_from(">I", body)
                    body = zlib.decompress(body[4:])
                    assert len(body) == size
                request = json.loads(body.decode("utf-8"))
                tell("request", delimiter=len(delimiter), version=version, flags=flags, resource=resource,
                     counter=int(counter), document=request)
                if mute:
                    continue
                answer = reply_to(resource, request["method"])
                pack_next = not pack_next  # both forms are legal
                head = bytes([0, JSON | (COMPRESSED if pack_next else 0)]) + header[2:]
                control.send_multipart([peer, b"", head, packed(answer) if pack_next else answer])
            elif source is update:
                frame = update.recv()
                tell("subscribed" if frame[:1] == b"\x01" else "unsubscribed", topic=frame[1:].decode("utf-8"))
            else:
                command = sys.stdin.readline()
                if not command:
                    return
                command = command.strip()
                if command == "publish":
                    for topic, entities in LISTS.items():
                        head = bytes([0, JSON | COMPRESSED]) + topic.encode("ascii")
                        update.send_multipart([topic.encode("ascii"), b"", head, packed(document(entities))])
                mute = command == "mute" or (mute and command != "speak")
                tell("done", command=command)


main()
