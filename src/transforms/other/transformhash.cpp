#include "transforms/frame/celltransform.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

#include <QCryptographicHash>
#include <QMessageAuthenticationCode>

/// Replaces the selected cells by digests from which they can't be had back.
class TransformHash final : public CellTransform
{
    enum Hashing { Unset, Sha1, Sha256, Sha512, Sha3_256, Sha3_512, Keccak256, Keccak512, Md5, HmacMd5 };

public:
    TransformHash()
        : CellTransform("Hash", "Perform a one-way hashing.",
            "hashing sha1 sha2 sha3 sha256 sha512 keccak hmac anonymize anonimise cryptographic pseudonymise "
            "pseudonymize masking")
    {
    }

private:
    OptionTable options() const override
    {
        return {
            Option::columns("Columns"),
            Option::selection("Hashing", "Algorithm",
                {"<select>", "SHA1", "SHA-256", "SHA-512", "SHA3-256", "SHA3-512", "Keccak-256", "Keccak-512", "MD5",
                    "HMAC-MD5"})
                .firstChoiceIsUnset()
                .tip("Select the hashing algorithm."),
            Option::text("Secret", "Secret").tip("Secret key for HMAC-MD5.").activeWhen("Hashing", {"HMAC-MD5"}),
        };
    }

    static QCryptographicHash::Algorithm algorithm(Hashing hashing)
    {
        switch (hashing) {
        case Sha1:
            return QCryptographicHash::Sha1;
        case Sha256:
            return QCryptographicHash::Sha256;
        case Sha512:
            return QCryptographicHash::Sha512;
        case Sha3_256:
            return QCryptographicHash::Sha3_256;
        case Sha3_512:
            return QCryptographicHash::Sha3_512;
        case Keccak256:
            return QCryptographicHash::Keccak_256;
        case Keccak512:
            return QCryptographicHash::Keccak_512;
        default:
            return QCryptographicHash::Md5;
        }
    }

    static QByteArray keyOf(const QString &secret)
    {
        constexpr int blockSize = 64;
        return secret.size() > blockSize ? QCryptographicHash::hash(secret.toUtf8(), QCryptographicHash::Md5)
                                         : secret.toLatin1();
    }

    CellRule rule(const OptionValues &values, const Dataset &) const override
    {
        const auto choice = values.choiceAs<Hashing>("Hashing");
        if (choice == Unset) {
            return {};
        }
        if (choice == HmacMd5) {
            const QByteArray key = keyOf(values.text("Secret"));
            return CellRule([key](const QString &text) {
                const QByteArray digest = QMessageAuthenticationCode::hash(text.toUtf8(), key, QCryptographicHash::Md5);
                return QString::fromLatin1(digest.toHex());
            });
        }
        return CellRule([method = algorithm(choice)](const QString &text) {
            return QString::fromLatin1(QCryptographicHash::hash(text.toUtf8(), method).toHex());
        });
    }
};

TRANSFORM_FACTORY(TransformHash)
