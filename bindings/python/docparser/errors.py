"""The exceptions of the package."""

from .account import LoadAccount


class DocparserError(Exception):
    """The base of all exceptions of this package: a call failed, and the message says why."""


class ProductNotFound(DocparserError, LookupError):
    """No folder has a usable file of a product.

    `product` is its name, and `account` has the files that were tried.
    """

    def __init__(self, message: str, product: str, account: LoadAccount) -> None:
        super().__init__(message, product, account)
        self.product = product
        self.account = account

    def __str__(self) -> str:
        return "\n  ".join([str(self.args[0]), *map(str, self.account.files)])


class ItemNotFound(DocparserError, LookupError):
    """A product has no item with an href."""

    def __init__(self, product: str, href: str) -> None:
        super().__init__(product, href)
        self.product = product
        self.href = href

    def __str__(self) -> str:
        return f"the product {self.product} has no item {self.href}"
