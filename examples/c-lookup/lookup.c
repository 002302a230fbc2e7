#include <docparser/c/docparser.h>

#include <stdio.h>

/* Prints why a call failed, and what became of the files that it considered. Returns the exit status. */
static int fail(const char* account) {
    fprintf(stderr, "lookup: %s\n", docparser_last_error());
    if (account != NULL)
        fprintf(stderr, "%s\n", account);
    return 1;
}

/* Prints the records of a product as JSON, or the index of all names: lookup FOLDER LANGUAGE [PRODUCT] */
int main(int argc, char* argv[]) {
    docparser_status status = DOCPARSER_OK;
    char* document = NULL;
    char* account = NULL;
    int exit_status = 0;

    if (argc < 3)
        return 2;
    if (docparser_set_install_folder(argv[1]) != DOCPARSER_OK ||
        docparser_set_language(argv[2], NULL, 0) != DOCPARSER_OK)
        return fail(NULL);

    if (argc == 3)
        status = docparser_get_index(&document, &account);
    else
        status = docparser_get_product(argv[3], &document, &account);

    if (status == DOCPARSER_OK)
        puts(document);
    else
        exit_status = fail(account);
    docparser_free(document);
    docparser_free(account);
    return exit_status;
}
