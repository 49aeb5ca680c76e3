#pragma once

// Deployment data: the addresses and keys this installation talks to, from
// the deployment file with its environment overrides.

#include <QByteArray>
#include <QString>

// Cloud service base URL: scheme, host and port, no trailing slash.
QByteArray GetServerIP();
// Base of the web pages; page paths are appended to it as they stand.
QByteArray GetPageIP();
bool IsTestServer();
// Base of the monitor web page for the configured service.
QByteArray GetMonitorIP();
// host:port of the push channel.
QString GetPushChannelAddress();
// The GUID the hub passes to every sibling application it starts.
QString GetLaunchKey();
QString GetHelpUrl();
// Base of the cloud storage that keeps uploaded flight logs; without a
// configured one, the cloud service's own address.
QByteArray GetStorageIP();

// The 32-byte key that enciphers the published no-fly-zone file, from the
// 64 hex digits of [noflyzone] cipher_key; empty when the setting is not a
// key of that length.
QByteArray GetNoflyZoneKey();
