#pragma once

// Kinds of link the link manager creates.
enum LINK_TYPE { LINK_TYPE_SERIAL = 0, LINK_TYPE_TCP_CLIENT = 1, LINK_TYPE_UDP = 2 };
