// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "demo/DemoSite.h"
#include "demo/SiteClock.h"
#include "link/document/Request.h"
#include "link/document/Response.h"
#include "link/document/ZmqBinaryMessage.h"

#include <boost/optional.hpp>
#include <vector>

namespace Demo {

// What a resource works on.
struct Context
{
    DemoSite &site;
    SiteClock &clock;
    quint32 seed; // of what is made by formula
    QString login = {}; // who asks

    void note(const QString &action) { site.note({clock.now(), Model::LogEntry::Cause::User, login, action}); }
};

// A reply document, or a binary one where the resource gives a file.
struct Outcome
{
    Outcome(const JsonAPI::Response &response)
        : response(response)
    {}
    Outcome(const ZmqBinaryMessage &file)
        : binary(file)
    {}

    JsonAPI::Response response;
    boost::optional<ZmqBinaryMessage> binary;
};

enum class Access { User, Admin };

// One row of the table of requests: who may ask it, and what answers. A request that comes this far is readable, and
// its user is logged in and set.
struct Resource
{
    const char *name;
    JsonAPI::Request::Method method;
    Access access;
    Outcome (*answer)(Context &context, const JsonAPI::Request &request);
    bool takesId = false; // whether the link may name a record
    bool takesQuery = false;
};

// The same for uploads, told apart by their topic.
struct Upload
{
    const char *topic;
    Access access;
    Outcome (*answer)(Context &context, const ZmqBinaryMessage &message);
};

const std::vector<Resource> &siteResources(); // plans, zones, devices and the site as a whole
const std::vector<Resource> &planResources(); // buttons, indicators, pictures and meshes
const std::vector<Resource> &automationResources(); // blueprints, schedules, and what runs at once
const std::vector<Resource> &systemResources(); // users, clock, backup and the like
const std::vector<Resource> &serviceResources(); // settings, transports and the journal
const std::vector<Resource> &statisticsResources(); // time series and run hours
const std::vector<Upload> &planUploads();
const std::vector<Upload> &uploads(); // of the system

} // namespace Demo
