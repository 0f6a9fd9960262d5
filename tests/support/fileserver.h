#pragma once

#include <QMap>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

namespace vanto
{

namespace Http
{
constexpr const char* Ok = "200 OK";
constexpr const char* NotFound = "404 Not Found";
constexpr const char* Cut = "200 OK, but cut";
constexpr const char* Silent = "";

inline QByteArray answer(const QByteArray& body, const char* status = Ok)
{
    const QByteArray length = QByteArray::number(body.size() + (status == Cut ? 1 : 0));
    return status == Silent
               ? QByteArray()
               : QByteArray("HTTP/1.1 ") + status +
                     "\r\nLocation: /elsewhere\r\nContent-Length: " + length + "\r\n\r\n" + body;
}
} // namespace Http

/// The firmware server of this process and of those that it starts. Answers a request for a path
/// with its bytes in `answers`, and does not answer others. With `drips` set, a byte of the body at
/// a time.
class FileServer : public QTcpServer
{
public:
    FileServer()
    {
        listen(QHostAddress::LocalHost);
        qputenv("VANTO_FIRMWARE_SERVER", "127.0.0.1:" + QByteArray::number(serverPort()) + '/');
        connect(this, &QTcpServer::newConnection, this, [this] {
            auto* socket = nextPendingConnection();
            connect(socket, &QTcpSocket::readyRead, socket, [this, socket] {
                paths.append(socket->readAll().split(' ').value(1));
                if (paths.constLast().endsWith(".upd") && drips) {
                    drip(socket);
                    return;
                }
                socket->write(answers.value(paths.constLast()));
                if (!answers.value(paths.constLast()).isEmpty())
                    socket->disconnectFromHost();
            });
        });
    }
    QString url() const { return QString("http://127.0.0.1:%1").arg(serverPort()); }

    QMap<QByteArray, QByteArray> answers;
    QByteArrayList paths; ///< that have been requested
    bool drips = false;

private:
    static void drip(QTcpSocket* socket)
    {
        socket->write("HTTP/1.1 200 OK\r\nContent-Length: 100000\r\n\r\n");
        auto* timer = new QTimer(socket);
        connect(timer, &QTimer::timeout, socket, [socket] { socket->write("0"); });
        timer->start(20);
    }
};

} // namespace vanto
