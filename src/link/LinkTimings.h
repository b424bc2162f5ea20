// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Every waiting time of the link, in milliseconds. Tests pass smaller ones.
struct LinkTimings
{
    int pollInterval = 10;
    int pollBudget = 8; // how long one tick may go on reading
    int pingInterval = 10000;
    int quickReply = 3000; // login, ping, statistics info
    int upload = 25000;
    int reply = 120000; // everything else
    int longestCheck = 10000; // of pending replies, when nothing is due sooner
    int checkSlack = 100; // added to each check
    int shortestCheck = 1000;
    int publicationHealing = 2000; // how long the publication socket may be down before the link reconnects
    int publicationRetry = 10000; // and again each so long while it stays down
    int stall = 5000; // a main loop that stood still for longer makes the link reconnect
    int closingPause = 500; // before the sockets close at destruction
};
