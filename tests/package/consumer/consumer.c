/* A process of its own making that uses the library: it brings the bus, encodes a record, and sees the bus refuse. */

#include <gorvanet.h>

#include <stdio.h>
#include <string.h>

static const unsigned char expected[] = {0, 0, 0, 3, 0, 0, 0, 4, 0, 0, 0, 7}; /* tag 3, 4 bytes, 7 */

int main(void)
{
    struct ipv4_address_return outcome = {7};
    uint8_t bytes[sizeof expected] = {0};
    uint8_t *cursor = bytes;

    if (gorvaNet_ipv4_address_return_serialize(&outcome, &cursor) || cursor != bytes + sizeof bytes ||
        memcmp(bytes, expected, sizeof bytes) != 0) {
        printf("the record is not encoded as it should be\n");
        return 1;
    }
    if (gorvanet_initialize() != 1) {
        printf("a bus that refuses was not noticed\n");
        return 1;
    }
    return 0;
}
