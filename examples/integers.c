/* Long integers from C: a prime for a key, a message to its power and back, a factorial as text. Build it
 * with
 *
 *     gcc -m32 integers.c $(pkg-config --cflags --libs vor)
 */
#include <stdio.h>
#include <string.h>
#include <vor_gmp.h>

static mpz_t p, q, n, phi, e, d, message, secret, back, x;
static vor_mpz* const all[] = {p, q, n, phi, e, d, message, secret, back, x};
static int failures = 0;

static void check(const char* what, int good) {
    printf("%-44s %s\n", what, good ? "right" : "WRONG");
    failures += !good;
}

int main(void) {
    const int count = sizeof all / sizeof all[0];
    const char text[] = "Attack at dawn";
    char read[sizeof text];
    char* digits;
    unsigned words;
    int i;

    for (i = 0; i < count; ++i) __gmpz_init(all[i]);

    /* Two primes of 1024 bits: the next ones above numbers in hexadecimal. Real keys need random ones. */
    __gmpz_ui_pow_ui(p, 3, 646);
    __gmpz_nextprime(p, p);
    __gmpz_ui_pow_ui(q, 5, 441);
    __gmpz_nextprime(q, q);
    check("p has passed 25 more rounds", __gmpz_probab_prime_p(p, 25) == 1);

    /* n = p q, and d with e d = 1 modulo (p - 1)(q - 1). */
    __gmpz_mul(n, p, q);
    __gmpz_sub_ui(x, p, 1);
    __gmpz_sub_ui(phi, q, 1);
    __gmpz_mul(phi, phi, x);
    __gmpz_set_ui(e, 65537);
    check("65537 has an inverse", __gmpz_invert(d, e, phi) == 1);
    printf("n has %u bits\n", __gmpz_sizeinbase(n, 2));

    /* A text as a number, its power, and the power of that. */
    __gmpz_import(message, sizeof text, 1, 1, 1, 0, text);
    __gmpz_powm(secret, message, e, n);
    __gmpz_powm(back, secret, d, n);
    check("the message comes back", __gmpz_cmp(back, message) == 0);
    __gmpz_export(read, &words, 1, 1, 1, 0, back);
    check("and so does its text", memcmp(read, text, words) == 0);

    /* 100! in decimal digits. */
    __gmpz_fac_ui(x, 100);
    digits = __gmpz_get_str(NULL, 10, x);
    printf("100! = %s\n", digits);
    check("100! begins and ends as is known",
          strncmp(digits, "93326215443944", 14) == 0 && strlen(digits) == 158 &&
              strcmp(digits + 134, "000000000000000000000000") == 0);
    check("its digits are read back",
          __gmpz_set_str(back, digits, 10) == 0 && __gmpz_cmp(back, x) == 0);
    __gmp_free_func_ptr()(digits, (unsigned)strlen(digits) + 1);

    for (i = 0; i < count; ++i) __gmpz_clear(all[i]);
    return failures != 0;
}
